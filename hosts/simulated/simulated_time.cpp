// Simulated time: the queue of what is due.
#include "simulated/simulated_time.h"

#include <algorithm>
#include <utility>

namespace quillbox {

SimulatedTime::EventId SimulatedTime::At(TimePoint due, Event event) {
  const EventId id{due, set_++};
  events_.emplace(id, std::move(event));
  return id;
}

SimulatedTime::EventId SimulatedTime::After(std::chrono::milliseconds delay, Event event) {
  return At(now_ + delay, std::move(event));
}

void SimulatedTime::Cancel(const EventId& event) {
  events_.erase(event);
}

// Taken out first: the handler may pump, set and cancel events.
void SimulatedTime::RunNow(Events::iterator event) {
  events_.extract(event).mapped()();
}

void SimulatedTime::RunUntil(TimePoint end) {
  RunUntil([] { return false; }, end);
}

bool SimulatedTime::RunUntil(const std::function<bool()>& done, TimePoint end) {
  while (!done()) {
    if (!AnyDue(end)) {
      now_ = std::max(now_, end);
      return false;
    }
    now_ = std::max(now_, events_.begin()->first.Due);
    RunNow(events_.begin());
  }
  return true;
}

void SimulatedTime::SetLocalTime(std::chrono::local_seconds time) {
  start_ = time - now_;
}

std::chrono::local_time<std::chrono::milliseconds> SimulatedTime::LocalTimeAt(
    TimePoint moment) const {
  return start_ + moment;
}

std::chrono::local_seconds SimulatedTime::LocalTime() {
  return std::chrono::floor<std::chrono::seconds>(LocalTimeAt(now_));
}

void SimulatedTime::PumpEvents() {
  const std::uint64_t firstLater = set_;
  auto next = events_.begin();
  while (next != events_.end() && next->first.Due <= now_) {
    if (next->first.Number >= firstLater) {
      ++next;
    } else {
      RunNow(next);
      next = events_.begin();  // the handler may have changed anything
    }
  }
}

void SimulatedTime::Sleep(std::chrono::milliseconds duration) {
  now_ += std::max(duration, std::chrono::milliseconds{0});
}

}  // namespace quillbox
