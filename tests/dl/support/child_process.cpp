#include "dl/support/child_process.h"

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fcntl.h>
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
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDERR_FILENO);
  const std::vector<char*> arguments = Pointers(start.Arguments);
  const std::vector<char*> environment = Pointers(start.Environment);
  const int failed =
      ::posix_spawn(&id_, arguments[0], &actions, nullptr, arguments.data(), environment.data());
  ::posix_spawn_file_actions_destroy(&actions);
  ::close(ends[1]);
  output_ = ends[0];
  if (failed != 0) {
    ::close(output_);
    throw std::runtime_error("can't start " + start.Arguments[0]);
  }
}

ChildProcess::~ChildProcess() {
  if (!waited_) {
    ::kill(id_, SIGKILL);
    Wait();
  }
  ::close(output_);
}

std::string ChildProcess::ReadLine() {
  std::string line;
  char c = '\0';
  while (::read(output_, &c, 1) == 1 && c != '\n') line += c;
  return line;
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
