// When the tooltip window comes and goes.
#pragma once

#include <memory>

#include "platform/timing.h"
#include "state/program_context.h"

namespace quillbox {

// Idle, waiting for the cursor to rest, or shown.
class TooltipHover {
 public:
  // The context must outlive this.
  explicit TooltipHover(const ProgramContext& program);
  ~TooltipHover();

  // The cursor moved over the icon.
  void MouseMoved();

  // The window goes, and nothing waits for the cursor any more.
  void Stop();

 private:
  void Timer6_Timer();
  void Timer7_Timer();
  void StopTimers();
  void UnloadTooltipWin();

  const ProgramContext& program_;
  std::unique_ptr<Timer> Timer6_;  // polls the cursor while it rests on the icon
  std::unique_ptr<Timer> Timer7_;  // shows the window
  bool loaded_ = false;            // the window is there
};

}  // namespace quillbox
