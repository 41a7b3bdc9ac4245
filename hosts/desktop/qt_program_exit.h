// The way out of the process.
#pragma once

#include <functional>
#include <utility>

#include "platform/program_exit.h"

namespace quillbox {

class QtProgramExit : public ProgramExit {
 public:
  // `lastActs` ends what must not outlive the process.
  explicit QtProgramExit(std::function<void()> lastActs) : lastActs_(std::move(lastActs)) {}

  [[noreturn]] void EndProcess() override;

 private:
  std::function<void()> lastActs_;
};

}  // namespace quillbox
