#include "system/agent_processes.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <string_view>
#include <thread>
#include <vector>

#ifdef __linux__
#include <linux/close_range.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#endif

#include "text/code_page.h"

namespace quillbox {
namespace {

using Variables = std::vector<std::pair<std::string, std::string>>;

bool Names(std::string_view entry, std::string_view variable) {
  return entry.size() > variable.size() && entry.starts_with(variable) &&
         entry[variable.size()] == '=';
}

// This process's environment with the changes made to it, as "name=value" entries.
std::vector<std::string> ChangedEnvironment(const Variables& changes) {
  std::vector<std::string> entries;
  for (char** entry = ::environ; entry != nullptr && *entry != nullptr; ++entry) {
    bool changed = false;
    for (const auto& [name, value] : changes) changed = changed || Names(*entry, name);
    if (!changed) entries.emplace_back(*entry);
  }
  for (const auto& [name, value] : changes) {
    if (!value.empty()) entries.push_back(name + "=" + ToUtf8(value));
  }
  return entries;
}

// Between fork and exec nothing but plain system calls is allowed: the toolkit has threads.
[[noreturn]] void BecomeAgent(pid_t parent, const char* program, char* const* arguments,
                              char* const* environment) {
#ifdef __linux__
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
  if (::getppid() != parent) ::_exit(127);  // it died before the line above
  ::setpgid(0, 0);
  const int nowhere = ::open("/dev/null", O_RDWR);
  for (const int stream : {0, 1, 2}) ::dup2(nowhere, stream);
#ifdef __linux__
  ::syscall(SYS_close_range, 3U, ~0U, CLOSE_RANGE_CLOEXEC);
#endif
  sigset_t none;
  ::sigemptyset(&none);
  ::sigprocmask(SIG_SETMASK, &none, nullptr);
  ::execve(program, arguments, environment);
  ::_exit(127);
}

// Also ends what it left running. Only then is it let go of: as long as the system keeps its number
// for it, no stranger's group can have that number.
bool HasEnded(pid_t child) {
  siginfo_t end{};
  if (::waitid(P_PID, static_cast<id_t>(child), &end, WEXITED | WNOHANG | WNOWAIT) < 0) {
    return errno != EINTR;
  }
  if (end.si_pid != child) return false;
  ::kill(-child, SIGKILL);
  ::waitpid(child, nullptr, WNOHANG);
  return true;
}

// A killed process can be held up by a slow disk; it isn't waited for without end.
void AwaitEnd(pid_t child) {
  using namespace std::chrono_literals;
  for (int tries = 0; tries < 2000 && !HasEnded(child); ++tries) std::this_thread::sleep_for(1ms);
}

void Kill(pid_t child) {
  if (HasEnded(child)) return;
  ::kill(-child, SIGKILL);  // and what it started
  ::kill(child, SIGKILL);   // when it didn't come to have a group of its own yet
  AwaitEnd(child);
}

}  // namespace

AgentId AgentProcesses::Start(const AgentStart& start) {
  std::erase_if(children_, [](const auto& child) { return HasEnded(child.second); });
  std::vector<std::string> entries = ChangedEnvironment(start.Environment);
  std::vector<char*> environment;
  environment.reserve(entries.size() + 1);
  for (std::string& entry : entries) environment.push_back(entry.data());
  environment.push_back(nullptr);
  char* const arguments[] = {const_cast<char*>(program_.c_str()),
                             const_cast<char*>(start.Text.c_str()), nullptr};
  const pid_t parent = ::getpid();
  const pid_t child = ::fork();
  if (child == 0) BecomeAgent(parent, program_.c_str(), arguments, environment.data());
  ++last_;
  if (child > 0) children_[last_] = child;
  return last_;
}

bool AgentProcesses::Running(AgentId agent) {
  const auto child = children_.find(agent);
  if (child == children_.end()) return false;
  if (!HasEnded(child->second)) return true;
  children_.erase(child);
  return false;
}

void AgentProcesses::End(AgentId agent) {
  const auto child = children_.find(agent);
  if (child == children_.end()) return;
  Kill(child->second);
  children_.erase(child);
}

void AgentProcesses::EndAll() {
  for (const auto& [agent, child] : children_) Kill(child);
  children_.clear();
}

}  // namespace quillbox
