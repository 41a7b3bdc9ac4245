// Processes that a test starts.
#pragma once

#include <sys/types.h>

#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quillbox {

struct ChildStart {
  std::vector<std::string> Arguments;    // the program's path first
  std::vector<std::string> Environment;  // the whole of it, "NAME=value"
  bool ErrorsApart = false;              // the second output is for ReadErrors alone
};

// A program with pipes at its ends that never outlives the test.
class ChildProcess {
 public:
  // Throws std::runtime_error when it can't be started.
  explicit ChildProcess(const ChildStart& start);
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  pid_t Id() const { return id_; }

  // Throws std::runtime_error when it reads no more.
  void Write(std::string_view text);
  void CloseInput();

  // The next line that it writes, without the line end; waits for it. Of both outputs, unless they
  // are apart. Empty when the program closed them.
  std::string ReadLine() { return ReadTo(output_, '\n'); }
  // The rest, until the program closes its outputs.
  std::string ReadAll() { return ReadTo(output_, EOF); }
  std::string ReadErrors() { return ReadTo(errors_, EOF); }

  // Waits for its end; gives the exit status, or minus the number of the signal that ended it.
  int Wait();
  // Asks it to end (SIGTERM) and waits, as Wait.
  int End();

 private:
  static std::string ReadTo(std::FILE* from, int end);

  pid_t id_ = -1;
  int input_ = -1;
  std::FILE* output_ = nullptr;
  std::FILE* errors_ = nullptr;
  bool waited_ = false;
  int status_ = 0;
};

// An ordinary user; root can do what others can't, which hides faults.
inline constexpr uid_t kNobody = 65534;

// Runs `body` in a child process, as that user when this process may choose. Its exit status; -1
// when it died of a signal.
int InChildAs(uid_t user, const std::function<int()>& body);

}  // namespace quillbox
