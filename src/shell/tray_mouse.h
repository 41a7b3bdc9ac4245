// What the mouse does on the tray icon: the tooltip window, and single and double clicks.
#pragma once

#include <functional>
#include <memory>

#include "platform/timing.h"
#include "state/program_context.h"

namespace quillbox {

// When the tooltip window comes and goes: idle, waiting for the cursor to rest, or shown.
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

// Tells single and double clicks apart.
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
