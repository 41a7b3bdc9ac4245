// Qt's event loop: its timers, pumping in it, and the way out of the process.
#pragma once

#include <functional>
#include <utility>

#include "platform/process.h"
#include "platform/timing.h"

namespace quillbox {

class QtTimers : public Timers {
 public:
  // No interval is shorter than 15 ms. Ticks keep to whole intervals from when the timer was turned
  // on; those that come due while the handler runs are left out.
  std::unique_ptr<Timer> NewTimer(std::chrono::milliseconds interval,
                                  std::function<void()> onTick) override;
};

// Pumping in Qt's event loop.
class QtEventPump : public EventPump {
 public:
  void PumpEvents() override;
  void Sleep(std::chrono::milliseconds duration) override;
};

// The way out of the process.
class QtProgramExit : public ProgramExit {
 public:
  // `lastActs` ends what must not outlive the process.
  explicit QtProgramExit(std::function<void()> lastActs) : lastActs_(std::move(lastActs)) {}

  [[noreturn]] void EndProcess() override;

 private:
  std::function<void()> lastActs_;
};

}  // namespace quillbox
