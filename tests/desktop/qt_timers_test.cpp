#include "desktop/qt_event_loop.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <map>
#include <thread>
#include <vector>

namespace quillbox {
namespace {

using namespace std::chrono_literals;

// Pumps until `done`, which must come by itself.
void PumpUntil(const std::function<bool()>& done) {
  while (!done()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

TEST(QtTimers, TicksFromThePumpAloneAndWhileItIsOn) {
  int ticks = 0;
  const auto timer = QtTimers().NewTimer(1ms, [&] { ++ticks; });
  EXPECT_FALSE(timer->Enabled());
  timer->SetEnabled(true);
  std::this_thread::sleep_for(25ms);
  EXPECT_EQ(ticks, 0);
  PumpUntil([&] { return ticks == 2; });
  timer->SetEnabled(false);
  std::this_thread::sleep_for(25ms);
  QtEventPump().PumpEvents();
  EXPECT_EQ(ticks, 2);
}

TEST(QtTimers, LeavesOutWhatComesDueInItsHandler) {
  int running = 0;
  int ticks = 0;
  const auto timer = QtTimers().NewTimer(5ms, [&] {
    ++ticks;
    EXPECT_EQ(++running, 1);
    const auto end = std::chrono::steady_clock::now() + 40ms;
    while (std::chrono::steady_clock::now() < end) QtEventPump().PumpEvents();
    --running;
  });
  timer->SetEnabled(true);
  PumpUntil([&] { return ticks == 1; });
  QtEventPump().PumpEvents();  // a tick that was merely put off would come at once
  EXPECT_EQ(ticks, 1);
  PumpUntil([&] { return ticks == 2; });
}

// Timers of a second and more are put together with others, up to a twentieth of their time early.
TEST(QtTimers, OneThatComesEarlyDoesNotTickAgainWhenItIsDue) {
  const auto end = std::chrono::steady_clock::now() + 4s;
  std::vector<std::unique_ptr<Timer>> timers;
  std::map<std::chrono::milliseconds, std::chrono::steady_clock::time_point> last;
  for (auto interval = 1000ms; interval < 2000ms; interval += 20ms) {
    timers.push_back(QtTimers().NewTimer(interval, [&last, interval] {
      const auto now = std::chrono::steady_clock::now();
      EXPECT_GT(now - last[interval], interval / 4) << interval.count();
      last[interval] = now;
    }));
    timers.back()->SetEnabled(true);
  }
  PumpUntil([&] { return std::chrono::steady_clock::now() > end; });
  EXPECT_EQ(last.size(), timers.size());
}

TEST(QtTimers, HandlerCanTurnItOffAndOnAndThrowItAway) {
  int ticks = 0;
  std::unique_ptr<Timer> timer = QtTimers().NewTimer(1ms, [&] {
    timer->SetEnabled(false);
    if (++ticks < 3) timer->SetEnabled(true);
  });
  timer->SetEnabled(true);
  PumpUntil([&] { return ticks == 3; });
  EXPECT_FALSE(timer->Enabled());

  timer = QtTimers().NewTimer(1ms, [&] { timer.reset(); });
  timer->SetEnabled(true);
  PumpUntil([&] { return timer == nullptr; });
}

}  // namespace
}  // namespace quillbox
