// The message loop of the program's one thread: timers, pumping, waiting.
#pragma once

#include <functional>
#include <memory>

#include "platform/timing.h"

namespace quillbox {

class WindowsTimers : public Timers {
 public:
  // No interval is shorter than 15 ms. Ticks keep to whole intervals from when the timer was turned
  // on. They come in the loops of menus and dialogs too.
  std::unique_ptr<Timer> NewTimer(std::chrono::milliseconds interval,
                                  std::function<void()> onTick) override;
};

class WindowsEventPump : public EventPump {
 public:
  void PumpEvents() override;
  void Sleep(std::chrono::milliseconds duration) override;

  // Handles events until somebody posts WM_QUIT; gives its exit code.
  int Run();
};

}  // namespace quillbox
