// Starting the fetch program: without a window, without a shell, with handles that are meant for
// it.
#pragma once

#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include "windows_base/own_handle.h"

namespace quillbox {

struct ProgramStart {
  std::string Program;  // full path
  // Code page; one argument each. The program is not to be taken for a shell's script: it reads its
  // command line by the usual rules.
  std::vector<std::string> Arguments;
  // Added to the environment; an empty value takes the variable out. Code page.
  std::vector<std::pair<std::string, std::string>> Environment;
  bool ItsOwnOutliveIt = false;  // what it starts, as a browser for the person
  // Null: it leads nowhere.
  HANDLE Input = nullptr, Output = nullptr, Errors = nullptr;
};

// A process and, unless told otherwise, all that it starts, which end with this object, and with
// this process however that ends.
class StartedProgram {
 public:
  StartedProgram() = default;

  // A start that fails shows in Running being false.
  explicit StartedProgram(const ProgramStart& start);
  ~StartedProgram() { End(); }
  StartedProgram(StartedProgram&&) = default;
  StartedProgram& operator=(StartedProgram&&) = delete;

  // By the answer false also what it started has ended.
  bool Running();

  // Waits until it is over, a second at most.
  void End();

  // 0 for success; something else when it still runs or never did.
  unsigned long ExitCode() const;

 private:
  OwnHandle process_, job_;
};

// Starts it and lets go of it: it goes on when this process ends. Whether it was started.
bool StartAlone(const ProgramStart& start);

// A pipe, one of whose ends a started program may inherit.
struct Pipe {
  explicit Pipe(bool programReads);
  OwnHandle Ours, Programs;
};

}  // namespace quillbox
