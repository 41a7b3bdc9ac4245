#include "support/child_process.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>

namespace quillbox {
namespace {

// Closed at the start of a program, but for the end that becomes the program's own.
struct Pipe {
  Pipe() {
    if (::pipe2(Ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  }
  int Ends[2];
};

std::vector<char*> Pointers(const std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

ChildProcess::ChildProcess(const ChildStart& start) {
  const Pipe in, out, err;
  input_ = in.Ends[1];
  output_ = ::fdopen(out.Ends[0], "r");
  errors_ = ::fdopen(err.Ends[0], "r");
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_adddup2(&actions, in.Ends[0], STDIN_FILENO);
  ::posix_spawn_file_actions_adddup2(&actions, out.Ends[1], STDOUT_FILENO);
  ::posix_spawn_file_actions_adddup2(&actions, (start.ErrorsApart ? err : out).Ends[1],
                                     STDERR_FILENO);
  const std::vector<char*> arguments = Pointers(start.Arguments);
  const std::vector<char*> environment = Pointers(start.Environment);
  const int failed =
      ::posix_spawn(&id_, arguments[0], &actions, nullptr, arguments.data(), environment.data());
  ::posix_spawn_file_actions_destroy(&actions);
  for (const int end : {in.Ends[0], out.Ends[1], err.Ends[1]}) ::close(end);
  if (failed != 0) throw std::runtime_error("can't start " + start.Arguments[0]);
}

ChildProcess::~ChildProcess() {
  CloseInput();
  if (!waited_) ::kill(id_, SIGKILL);
  Wait();
  std::fclose(output_);
  std::fclose(errors_);
}

void ChildProcess::Write(std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(input_, text.data(), text.size());
    if (count <= 0) throw std::runtime_error("the program doesn't read");
    text.remove_prefix(static_cast<std::size_t>(count));
  }
}

void ChildProcess::CloseInput() {
  if (input_ >= 0) ::close(input_);
  input_ = -1;
}

std::string ChildProcess::ReadTo(std::FILE* from, int end) {
  std::string text;
  for (int c = std::getc(from); c != EOF && c != end; c = std::getc(from)) {
    text += static_cast<char>(c);
  }
  return text;
}

int ChildProcess::Wait() {
  if (waited_) return status_;
  int status = 0;
  while (::waitpid(id_, &status, 0) < 0 && errno == EINTR) {
  }
  waited_ = true;
  status_ = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  return status_;
}

int ChildProcess::End() {
  if (!waited_) ::kill(id_, SIGTERM);
  return Wait();
}

int InChildAs(uid_t user, const std::function<int()>& body) {
  const pid_t child = ::fork();
  if (child == 0) {
    if (::geteuid() == 0 && user != 0 && (::setgid(user) != 0 || ::setuid(user) != 0)) ::_exit(125);
    ::_exit(body());
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace quillbox
