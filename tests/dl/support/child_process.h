// A program that a test starts and that never outlives it.
#pragma once

#include <sys/types.h>

#include <cstdio>
#include <string>
#include <vector>

namespace quillbox {

struct ChildStart {
  std::vector<std::string> Arguments;    // the program's path first
  std::vector<std::string> Environment;  // the whole of it, "NAME=value"
};

class ChildProcess {
 public:
  // Throws std::runtime_error when it can't be started.
  explicit ChildProcess(const ChildStart& start);
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  pid_t Id() const { return id_; }

  // The next line that it writes, to either of its two outputs, without the line end; waits for it.
  // Empty when the program closed them.
  std::string ReadLine() { return ReadTo('\n'); }
  // The rest, until the program closes both.
  std::string ReadAll() { return ReadTo(EOF); }

  // Waits for its end; gives the exit status, or minus the number of the signal that ended it.
  int Wait();
  // Asks it to end (SIGTERM) and waits, as Wait.
  int End();

 private:
  std::string ReadTo(int end);

  pid_t id_ = -1;
  std::FILE* output_ = nullptr;
  bool waited_ = false;
  int status_ = 0;
};

}  // namespace quillbox
