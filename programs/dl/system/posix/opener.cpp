#include "system/opener.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <vector>

#ifdef __APPLE__
extern char** environ;
#endif

namespace quillbox {
namespace {

#ifdef __APPLE__
constexpr const char* kOpener = "open";
#else
constexpr const char* kOpener = "xdg-open";
#endif

// A proxy whose password we were given; the browser would keep it, for all its children, as long as
// it runs.
bool HoldsPassword(std::string_view variable) {
  const std::size_t cut = variable.find('=');
  if (cut == std::string_view::npos) return false;
  const std::string_view name = variable.substr(0, cut);
  return (name.ends_with("_proxy") || name.ends_with("_PROXY")) &&
         variable.find('@', cut) != std::string_view::npos;
}

std::vector<char*> EnvironmentOfBrowser() {
  std::vector<char*> variables;
  for (char** variable = environ; *variable != nullptr; ++variable) {
    if (!HoldsPassword(*variable)) variables.push_back(*variable);
  }
  variables.push_back(nullptr);
  return variables;
}

// Our outputs belong to the name of the grant and to our own words, and the browser outlives
// whoever reads them. What we ignore isn't its matter either.
std::optional<pid_t> Spawn(char* const* arguments) {
  posix_spawn_file_actions_t actions;
  posix_spawnattr_t attributes;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawnattr_init(&attributes);
  ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  for (const int output : {STDOUT_FILENO, STDERR_FILENO}) {
    ::posix_spawn_file_actions_addopen(&actions, output, "/dev/null", O_WRONLY, 0);
  }
  sigset_t usual;
  ::sigemptyset(&usual);
  ::sigaddset(&usual, SIGPIPE);
  ::sigaddset(&usual, SIGXFSZ);
  ::posix_spawnattr_setsigdefault(&attributes, &usual);
  ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
  pid_t child = -1;
  const int failed = ::posix_spawnp(&child, kOpener, &actions, &attributes, arguments,
                                    EnvironmentOfBrowser().data());
  ::posix_spawnattr_destroy(&attributes);
  ::posix_spawn_file_actions_destroy(&actions);
  return failed == 0 ? std::optional(child) : std::nullopt;
}

}  // namespace

Opener::Opener(const std::string& address, unsigned fileMask) {
  char* const arguments[] = {const_cast<char*>(kOpener), const_cast<char*>(address.c_str()),
                             nullptr};
  const mode_t own = ::umask(static_cast<mode_t>(fileMask));
  process_ = Spawn(arguments).value_or(-1);
  ::umask(own);
}

std::optional<bool> Opener::Failed() const {
  int status = 0;
  const pid_t ended = ::waitpid(static_cast<pid_t>(process_), &status, WNOHANG);
  if (ended == process_) return status != 0;
  if (ended < 0 && errno != EINTR) return false;
  return std::nullopt;
}

}  // namespace quillbox
