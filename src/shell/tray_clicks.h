// Telling single and double clicks on the tray icon apart.
#pragma once

#include <functional>
#include <memory>

#include "platform/timing.h"
#include "state/program_context.h"

namespace quillbox {

class TrayClicks {
 public:
  // `run` carries out a tray action, which it is given as its text. The context must outlive this.
  TrayClicks(const ProgramContext& program, std::function<void(const std::string&)> run);
  ~TrayClicks();

  // The left button went down. 200 ms later the single action runs, unless a double click comes.
  void LeftDown();

  // Runs the double action if the single one has not run yet.
  void DoubleClick();

 private:
  void Timer4_Timer();

  const ProgramContext& program_;
  std::function<void(const std::string&)> run_;
  std::unique_ptr<Timer> Timer4_;
};

}  // namespace quillbox
