#include "simulated/simulated_time.h"

#include <algorithm>
#include <optional>
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

namespace {

using std::chrono::milliseconds;

// Lives on while its own handler runs, even if the handler throws the timer away.
class Ticking final : public Timer, public std::enable_shared_from_this<Ticking> {
 public:
  Ticking(SimulatedTime& time, milliseconds interval, std::function<void()> onTick)
      : time_(time), interval_(std::max(interval, milliseconds{1})), onTick_(std::move(onTick)) {}

  void SetEnabled(bool enabled) override {
    if (enabled == Enabled()) return;
    ++switched_;
    enabled_ = enabled;
    if (enabled) {
      SetNext(time_.Now() + interval_);
    } else {
      time_.Cancel(*next_);
    }
  }

  bool Enabled() const override { return enabled_; }

 private:
  void SetNext(TimePoint due) {
    next_ = time_.At(due, [self = shared_from_this(), due] { self->Tick(due); });
  }

  void Tick(TimePoint due) {
    const unsigned switched = switched_;
    if (!running_) {
      running_ = true;
      onTick_();
      running_ = false;
    }
    if (switched == switched_) SetNext(FirstAfterNow(due));
  }

  // Ticks keep their rhythm; those that came due during the handler are left out.
  TimePoint FirstAfterNow(TimePoint due) const {
    return due + interval_ * ((time_.Now() - due) / interval_ + 1);
  }

  SimulatedTime& time_;
  milliseconds interval_;
  std::function<void()> onTick_;
  bool enabled_ = false;
  bool running_ = false;
  unsigned switched_ = 0;
  std::optional<SimulatedTime::EventId> next_;  // set when it was on once
};

class OwnedTimer final : public Timer {
 public:
  explicit OwnedTimer(std::shared_ptr<Ticking> ticking) : ticking_(std::move(ticking)) {}
  OwnedTimer(const OwnedTimer&) = delete;
  OwnedTimer& operator=(const OwnedTimer&) = delete;
  ~OwnedTimer() override { ticking_->SetEnabled(false); }

  void SetEnabled(bool enabled) override { ticking_->SetEnabled(enabled); }
  bool Enabled() const override { return ticking_->Enabled(); }

 private:
  std::shared_ptr<Ticking> ticking_;
};

}  // namespace

void SimulatedTimers::StopAll() {
  for (const auto& timer : timers_) {
    if (const auto alive = timer.lock()) alive->SetEnabled(false);
  }
  timers_.clear();
}

std::unique_ptr<Timer> SimulatedTimers::NewTimer(milliseconds interval,
                                                 std::function<void()> onTick) {
  auto ticking = std::make_shared<Ticking>(time_, interval, std::move(onTick));
  std::erase_if(timers_, [](const auto& timer) { return timer.expired(); });
  timers_.push_back(ticking);
  return std::make_unique<OwnedTimer>(std::move(ticking));
}

}  // namespace quillbox
