// Time and waiting: clocks, timers, and letting other events run in the middle of a long operation.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace quillbox {

// Time since an arbitrary start; never set back.
using TimePoint = std::chrono::milliseconds;

class Clock {
 public:
  virtual ~Clock() = default;

  // Date and time of day where the person is.
  virtual std::chrono::local_seconds LocalTime() = 0;

  // For measuring how long something takes.
  virtual TimePoint Now() = 0;
};

// Periodic, on the program's one thread: while on, it ticks each time its interval has passed and
// events are pumped. A tick that comes due while this timer's own handler runs is left out.
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

class EventPump {
 public:
  virtual ~EventPump() = default;

  // Handles the events that are waiting, once, and returns. Anything may have changed afterwards.
  virtual void PumpEvents() = 0;

  // Waits without handling events.
  virtual void Sleep(std::chrono::milliseconds duration) = 0;
};

}  // namespace quillbox
