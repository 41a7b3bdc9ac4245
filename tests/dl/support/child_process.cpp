#include "dl/support/child_process.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>

namespace quillbox {
namespace {

std::vector<char*> Pointers(const std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

ChildProcess::ChildProcess(const ChildStart& start) {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  output_ = ::fdopen(ends[0], "r");
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  for (const int output : {STDOUT_FILENO, STDERR_FILENO}) {
    ::posix_spawn_file_actions_adddup2(&actions, ends[1], output);
  }
  const std::vector<char*> arguments = Pointers(start.Arguments);
  const std::vector<char*> environment = Pointers(start.Environment);
  const int failed =
      ::posix_spawn(&id_, arguments[0], &actions, nullptr, arguments.data(), environment.data());
  ::posix_spawn_file_actions_destroy(&actions);
  ::close(ends[1]);
  if (failed == 0) return;
  std::fclose(output_);
  throw std::runtime_error("can't start " + start.Arguments[0]);
}

ChildProcess::~ChildProcess() {
  if (!waited_) ::kill(id_, SIGKILL);
  Wait();
  std::fclose(output_);
}

std::string ChildProcess::ReadTo(int end) {
  std::string text;
  for (int c = std::getc(output_); c != EOF && c != end; c = std::getc(output_)) {
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

}  // namespace quillbox
