// Simulated time: a clock that moves only when told to, what falls due at which moment, and timers.
#pragma once

#include <chrono>
#include <compare>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "platform/timing.h"

namespace quillbox {

// Events run in the order of their moments, and equal moments in the order in which they were set.
class SimulatedTime final : public Clock, public EventPump {
 public:
  using Event = std::function<void()>;

  struct EventId {
    TimePoint Due;
    std::uint64_t Number;
    auto operator<=>(const EventId&) const =
        default;  // NOLINT(modernize-use-nullptr): no pointer here
  };

  // A moment that has passed already is due at once.
  EventId At(TimePoint due, Event event);
  EventId After(std::chrono::milliseconds delay, Event event);
  // Cancelling what has run or was cancelled does nothing.
  void Cancel(const EventId& event);

  // Jumps from event to event up to `end`, and stands there; a handler that sleeps can carry the
  // clock further. May be nested in a handler.
  void RunUntil(TimePoint end);
  // The same, but stops as soon as `done` is true; it is asked before every event. Whether it was.
  bool RunUntil(const std::function<bool()>& done, TimePoint end);

  // What LocalTime gives now; time goes on from there.
  void SetLocalTime(std::chrono::local_seconds time);
  std::chrono::local_time<std::chrono::milliseconds> LocalTimeAt(TimePoint moment) const;

  // Clock
  std::chrono::local_seconds LocalTime() override;
  TimePoint Now() override { return now_; }

  // EventPump. Events that are set by the events of one pumping wait for the next one.
  void PumpEvents() override;
  void Sleep(std::chrono::milliseconds duration) override;

 private:
  using Events = std::map<EventId, Event>;

  bool AnyDue(TimePoint moment) const {
    return !events_.empty() && events_.begin()->first.Due <= moment;
  }
  void RunNow(Events::iterator event);

  TimePoint now_{0};
  std::chrono::local_time<std::chrono::milliseconds> start_{};
  std::uint64_t set_ = 0;
  Events events_;
};

// Timers on simulated time.
class SimulatedTimers final : public Timers {
 public:
  // `time` must outlive this object.
  explicit SimulatedTimers(SimulatedTime& time) : time_(time) {}

  // The process that made the timers is gone: none of them ticks any more.
  void StopAll();

  std::unique_ptr<Timer> NewTimer(std::chrono::milliseconds interval,
                                  std::function<void()> onTick) override;

 private:
  SimulatedTime& time_;
  std::vector<std::weak_ptr<Timer>> timers_;
};

}  // namespace quillbox
