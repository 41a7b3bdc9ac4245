// Timers on the program's one thread.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace quillbox {

// Periodic: while on, it ticks each time its interval has passed and events are pumped. A tick that
// comes due while this timer's own handler runs is left out.
class Timer {
 public:
  virtual ~Timer() = default;

  // Turning a timer on starts a whole interval; turning on one that is on changes nothing.
  virtual void SetEnabled(bool enabled) = 0;
  virtual bool Enabled() const = 0;
};

class Timers {
 public:
  virtual ~Timers() = default;

  // A timer that is off. `onTick` runs on the program's thread, from the event pump alone. The
  // timer must not outlive this port.
  virtual std::unique_ptr<Timer> NewTimer(std::chrono::milliseconds interval,
                                          std::function<void()> onTick) = 0;
};

}  // namespace quillbox
