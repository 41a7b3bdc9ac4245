// Timers on simulated time.
#include "simulated/simulated_timers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class SimulatedTimersTest : public testing::Test {
 protected:
  std::unique_ptr<Timer> NotingTimer(std::chrono::milliseconds interval) {
    return timers_.NewTimer(interval, [this] { ticks_.push_back(time_.Now()); });
  }

  SimulatedTime time_;
  SimulatedTimers timers_{time_};
  std::vector<TimePoint> ticks_;
};

TEST_F(SimulatedTimersTest, TicksWhileItIsOn) {
  const auto timer = NotingTimer(100ms);
  time_.RunUntil(250ms);
  EXPECT_THAT(ticks_, IsEmpty()) << "a new timer is off";
  timer->SetEnabled(true);
  time_.RunUntil(300ms);
  timer->SetEnabled(true);  // changes nothing
  time_.RunUntil(550ms);
  timer->SetEnabled(false);
  time_.RunUntil(2s);
  EXPECT_THAT(ticks_, ElementsAre(350ms, 450ms, 550ms));
}

TEST_F(SimulatedTimersTest, TurningItOnAgainStartsAWholeInterval) {
  const auto timer = NotingTimer(100ms);
  timer->SetEnabled(true);
  time_.RunUntil(90ms);
  timer->SetEnabled(false);
  timer->SetEnabled(true);
  time_.RunUntil(200ms);
  EXPECT_THAT(ticks_, ElementsAre(190ms));
}

TEST_F(SimulatedTimersTest, TicksThatComeDueDuringTheHandlerAreLeftOut) {
  const auto timer = timers_.NewTimer(100ms, [this] {
    ticks_.push_back(time_.Now());
    time_.Sleep(250ms);
    time_.PumpEvents();
  });
  timer->SetEnabled(true);
  time_.RunUntil(700ms);
  EXPECT_THAT(ticks_, ElementsAre(100ms, 400ms, 700ms));
}

TEST_F(SimulatedTimersTest, AHandlerThatSwitchesItOffAndOnIsNotRunInsideItself) {
  std::unique_ptr<Timer> timer;
  timer = timers_.NewTimer(100ms, [&] {
    ticks_.push_back(time_.Now());
    timer->SetEnabled(false);
    timer->SetEnabled(true);
    time_.Sleep(100ms);
    time_.PumpEvents();
  });
  timer->SetEnabled(true);
  time_.RunUntil(350ms);
  EXPECT_THAT(ticks_, ElementsAre(100ms, 300ms));
}

TEST_F(SimulatedTimersTest, AHandlerMayThrowItsTimerAway) {
  std::unique_ptr<Timer> timer;
  timer = timers_.NewTimer(100ms, [&] {
    timer.reset();
    ticks_.push_back(time_.Now());
  });
  timer->SetEnabled(true);
  time_.RunUntil(1s);
  EXPECT_THAT(ticks_, ElementsAre(100ms));
}

TEST_F(SimulatedTimersTest, NoneTicksWhenTheProcessIsGone) {
  const auto timer = NotingTimer(100ms);
  timer->SetEnabled(true);
  timers_.StopAll();
  time_.RunUntil(1s);
  EXPECT_THAT(ticks_, IsEmpty());
}

}  // namespace
}  // namespace quillbox
