// The order of events in simulated time, and its timers.
#include "simulated/simulated_time.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class SimulatedTimeTest : public testing::Test {
 protected:
  SimulatedTime::Event Note(std::string name) {
    return [this, name] { seen_.push_back(name + "@" + std::to_string(time_.Now().count())); };
  }

  SimulatedTime time_;
  std::vector<std::string> seen_;
};

TEST_F(SimulatedTimeTest, RunsByMomentThenInTheOrderOfSetting) {
  time_.After(20ms, Note("late"));
  time_.After(10ms, Note("first"));
  time_.After(10ms, Note("second"));
  time_.RunUntil(15ms);
  EXPECT_THAT(seen_, ElementsAre("first@10", "second@10"));
  EXPECT_EQ(time_.Now(), 15ms);
  time_.RunUntil(20ms);
  EXPECT_THAT(seen_, ElementsAre("first@10", "second@10", "late@20"));
}

TEST_F(SimulatedTimeTest, APumpingInsideAHandlerRunsTheOthersThatAreDue) {
  time_.After(5ms, [this] {
    Note("outer")();
    time_.Sleep(5ms);
    time_.PumpEvents();
    Note("outer again")();
  });
  time_.After(7ms, Note("inner"));
  time_.RunUntil(100ms);
  EXPECT_THAT(seen_, ElementsAre("outer@5", "inner@10", "outer again@10"));
}

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
  time_.RunUntil(580ms);
  timer->SetEnabled(true);  // begins a whole interval
  time_.RunUntil(690ms);
  timer->SetEnabled(false);
  time_.RunUntil(2s);
  EXPECT_THAT(ticks_, ElementsAre(350ms, 450ms, 550ms, 680ms));
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

}  // namespace
}  // namespace quillbox
