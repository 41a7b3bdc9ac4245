// The order of events in simulated time.
#include "simulated/simulated_time.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

TEST_F(SimulatedTimeTest, SleepingRunsNothingUntilEventsArePumped) {
  time_.After(10ms, Note("event"));
  time_.Sleep(30ms);
  EXPECT_THAT(seen_, IsEmpty());
  time_.PumpEvents();
  EXPECT_THAT(seen_, ElementsAre("event@30"));
}

TEST_F(SimulatedTimeTest, APumpingLeavesWhatItsOwnEventsSetToTheNextOne) {
  time_.After(0ms, [this] { time_.After(0ms, Note("child")); });
  time_.PumpEvents();
  EXPECT_THAT(seen_, IsEmpty());
  time_.PumpEvents();
  EXPECT_THAT(seen_, ElementsAre("child@0"));
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

TEST_F(SimulatedTimeTest, ACancelledEventDoesNotRun) {
  SimulatedTime::EventId later{};
  time_.After(5ms, [&] { time_.Cancel(later); });
  later = time_.After(5ms, Note("cancelled"));
  time_.RunUntil(10ms);
  EXPECT_THAT(seen_, IsEmpty());
}

TEST_F(SimulatedTimeTest, StopsAsSoonAsItIsDone) {
  time_.After(5ms, Note("a"));
  time_.After(6ms, Note("b"));
  EXPECT_TRUE(time_.RunUntil([this] { return !seen_.empty(); }, 1h));
  EXPECT_EQ(time_.Now(), 5ms);
  EXPECT_FALSE(time_.RunUntil([this] { return seen_.size() > 2; }, 1h));
  EXPECT_EQ(time_.Now(), 1h);
}

TEST_F(SimulatedTimeTest, TheCalendarGoesOnFromWhatItWasSetTo) {
  using namespace std::chrono;
  time_.Sleep(1h);
  time_.SetLocalTime(local_days{year{2007} / 12 / 31} + 23h + 59min + 59s);
  time_.Sleep(1s);
  EXPECT_EQ(time_.LocalTime(), local_days{year{2008} / 1 / 1});
}

}  // namespace
}  // namespace quillbox
