// The way out.
#pragma once

namespace quillbox {

class ProgramExit {
 public:
  virtual ~ProgramExit() = default;

  // Ends the process at once, whatever waits are nested in each other; agents that run are ended.
  [[noreturn]] virtual void EndProcess() = 0;
};

}  // namespace quillbox
