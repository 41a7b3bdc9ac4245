#include "desktop/qt_timers.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <thread>

#include "desktop/qt_event_pump.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;

// Pumps until `done`, which must come by itself.
void PumpUntil(const std::function<bool()>& done) {
  while (!done()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

class QtTimersTest : public testing::Test {
 protected:
  QtTimers timers_;
};

TEST_F(QtTimersTest, TicksFromThePumpAloneAndWhileItIsOn) {
  int ticks = 0;
  const auto timer = timers_.NewTimer(1ms, [&] { ++ticks; });
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

TEST_F(QtTimersTest, LeavesOutWhatComesDueInItsHandler) {
  int running = 0;
  int ticks = 0;
  const auto timer = timers_.NewTimer(5ms, [&] {
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

TEST_F(QtTimersTest, HandlerCanTurnItOffAndOn) {
  int ticks = 0;
  std::unique_ptr<Timer> timer = timers_.NewTimer(1ms, [&] {
    timer->SetEnabled(false);
    if (++ticks < 3) timer->SetEnabled(true);
  });
  timer->SetEnabled(true);
  PumpUntil([&] { return ticks == 3; });
  EXPECT_FALSE(timer->Enabled());
}

TEST_F(QtTimersTest, HandlerCanThrowItAway) {
  std::unique_ptr<Timer> timer = timers_.NewTimer(1ms, [&] { timer.reset(); });
  timer->SetEnabled(true);
  PumpUntil([&] { return timer == nullptr; });
}

}  // namespace
}  // namespace quillbox
