#include "desktop/qt_event_loop.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <thread>

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using SteadyClock = std::chrono::steady_clock;

// A screen shows no more, and each tick wakes the processor.
constexpr std::chrono::milliseconds kFinest = 15ms;

// Set anew after each tick, so that nothing can tick while the handler runs.
class QtTimer : public Timer {
 public:
  QtTimer(std::chrono::milliseconds interval, std::function<void()> onTick)
      : interval_(std::max(interval, kFinest)), onTick_(std::move(onTick)) {
    timer_.setSingleShot(true);
    // The system may put coarse ones together and wake up less often.
    timer_.setTimerType(interval_ < 1s ? Qt::PreciseTimer : Qt::CoarseTimer);
    QObject::connect(&timer_, &QTimer::timeout, [this] { Tick(); });
  }

  void SetEnabled(bool enabled) override {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    timer_.stop();
    if (!enabled) return;
    due_ = SteadyClock::now() + interval_;
    if (!inHandler_) timer_.start(interval_);
  }

  bool Enabled() const override { return enabled_; }

 private:
  void Tick() {
    const QPointer<QTimer> alive(&timer_);  // the handler may throw the timer away
    const std::function<void()> handler = onTick_;
    due_ += interval_;  // from what was due, for a coarse timer may come early
    inHandler_ = true;
    handler();
    if (!alive) return;
    inHandler_ = false;
    if (enabled_) Rearm();
  }

  void Rearm() {
    const auto now = SteadyClock::now();
    while (due_ <= now) due_ += interval_;
    timer_.start(std::chrono::ceil<std::chrono::milliseconds>(due_ - now));
  }

  const std::chrono::milliseconds interval_;
  const std::function<void()> onTick_;
  QTimer timer_;
  SteadyClock::time_point due_;
  bool enabled_ = false;
  bool inHandler_ = false;
};

}  // namespace

std::unique_ptr<Timer> QtTimers::NewTimer(std::chrono::milliseconds interval,
                                          std::function<void()> onTick) {
  return std::make_unique<QtTimer>(interval, std::move(onTick));
}

void QtEventPump::PumpEvents() {
  QCoreApplication::processEvents();
}

void QtEventPump::Sleep(std::chrono::milliseconds duration) {
  std::this_thread::sleep_for(duration);
}

// Nothing is unwound: waits may be nested in each other all the way down the stack.
void QtProgramExit::EndProcess() {
  lastActs_();
  std::_Exit(EXIT_SUCCESS);
}

using namespace std::chrono_literals;

LocalSingleInstance::LocalSingleInstance() : gate_(RuntimeFolder(InstanceGate::kLongestFolder)) {}

bool LocalSingleInstance::AnotherInstanceRuns() {
  if (!gate_.Pass()) return true;
  if (!knocks_ && gate_.Door() >= 0) {
    knocks_ = std::make_unique<QSocketNotifier>(gate_.Door(), QSocketNotifier::Read);
    QObject::connect(knocks_.get(), &QSocketNotifier::activated, [this] {
      const int knocks = gate_.AnswerKnocks();
      for (int i = 0; i < knocks && events_ != nullptr; ++i) events_->QuillboxLaunched();
    });
  }
  return false;
}

void LocalSingleInstance::WakeRunningInstance() {
  gate_.Knock(2s);
}

void LocalSingleInstance::Close() {
  knocks_.reset();
  gate_.Close();
}

}  // namespace quillbox
