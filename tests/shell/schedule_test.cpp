// When automatic refreshes happen.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "simulated/sample_report.h"
#include "simulated/simulated_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

class ScheduleTest : public testing::Test {
 protected:
  ScheduleTest() {
    program_.UsedBefore();
    program_.AddAccount("one", "ann", "x");
    program_.Set(kDataToDownload, kDownloadContent);
    program_.Set(kAutoUpdateEnable, kTrue);
    program_.Set(kAutoUpdateRate, "Every minute");
    AnswerAfter(400ms);
  }

  void AnswerAfter(std::chrono::milliseconds time) {
    AgentBehaviour agent = Answers("1");
    agent.LogAfter = time;
    program_.Host.Agents.Always(agent);
  }

  // The moments at which an agent was started.
  std::vector<TimePoint> Refreshes() const {
    std::vector<TimePoint> moments;
    for (const TraceEntry& entry : program_.Host.Effects.Entries()) {
      if (entry.What == "agent" && entry.Text.starts_with("start")) moments.push_back(entry.At);
    }
    return moments;
  }

  SimulatedProgram program_;
};

TEST_F(ScheduleTest, ComesAtTheRateCountedFromTheLastCyclesEnd) {
  struct Case {
    const char* rate;
    std::chrono::minutes minutes;
  };
  const Case kCases[] = {
      {"Every minute", 1min}, {"Every 15 minutes", 15min}, {"Every hour", 60min}, {"", 15min}};
  for (const Case& c : kCases) {
    program_.Set(kAutoUpdateRate, c.rate);
    program_.Host.Effects.Clear();
    program_.Start();
    const TimePoint start = program_.Host.Time.Now();
    program_.Host.RunFor(2 * c.minutes + 30s);
    EXPECT_THAT(Refreshes(), ElementsAre(start + c.minutes, start + 2 * c.minutes + 400ms))
        << c.rate;
    program_.Host.Kill();
  }
}

TEST_F(ScheduleTest, IsOffUnlessEnabled) {
  program_.Set(kAutoUpdateEnable, "true");
  program_.Start();
  program_.Host.RunFor(24h);
  EXPECT_THAT(Refreshes(), IsEmpty());
}

TEST_F(ScheduleTest, WaitsForAConnectionWhenToldTo) {
  program_.Set(kAutoUpdateWhenConnected, kTrue);
  program_.Host.Network.SetOnline(false);
  program_.Start();
  program_.Host.RunFor(4min + 30s);
  EXPECT_THAT(Refreshes(), IsEmpty());
  EXPECT_EQ(program_.State().UpdateMinuteCount, 4);
  program_.Host.Network.SetOnline(true);
  program_.Host.RunFor(1min);
  EXPECT_THAT(Refreshes(), ElementsAre(5min));
  EXPECT_EQ(program_.State().UpdateMinuteCount, 0);
}

TEST_F(ScheduleTest, GoesAheadOfflineWhenNotToldToWait) {
  program_.Host.Network.SetOnline(false);
  program_.Start();
  program_.Host.RunFor(61s);
  EXPECT_THAT(Refreshes(), ElementsAre(1min));
}

TEST_F(ScheduleTest, TheMinuteCountStaysInRangeThroughAMonthOffline) {
  program_.Set(kAutoUpdateWhenConnected, kTrue);
  program_.Host.Network.SetOnline(false);
  program_.Start();
  program_.Host.RunFor(31 * 24h);
  EXPECT_EQ(program_.State().UpdateMinuteCount, 32767);
  program_.Host.Network.SetOnline(true);
  program_.Host.RunFor(2min);
  EXPECT_FALSE(Refreshes().empty());
}

TEST_F(ScheduleTest, ATickDuringACycleIsSkippedWhole) {
  AnswerAfter(10s);
  program_.Set(kAutoUpdateRate, "Every 2 minutes");
  program_.Start();
  program_.Host.RunFor(115s);
  Host ports = program_.Host.Ports();
  program_.Host.After(4s, [ports] { ports.Events.Sleep(3s); });
  program_.Host.After(8s, [this] { EXPECT_EQ(program_.State().UpdateMinuteCount, 1); });
  program_.Host.Choose("RefreshNow");  // until 125 s; the tick of 120 s comes in it, at 122 s
  EXPECT_EQ(program_.State().UpdateMinuteCount, 0);
  program_.Host.RunFor(4min);
  // A swap at 122 s would have begun a fresh minute there; so the clock ticks at 180 s and 240 s.
  EXPECT_THAT(Refreshes(), ElementsAre(115s, 240s));
}

TEST_F(ScheduleTest, ACycleAsLongAsARefreshMayTakeHoldsTheClock) {
  program_.Host.Agents.Always(AgentBehaviour{});
  program_.Start();
  program_.Host.RunFor(5min);
  const auto refreshes = Refreshes();
  ASSERT_EQ(refreshes.size(), 2U);
  EXPECT_EQ(refreshes[0], 60s);
  EXPECT_GE(refreshes[1], 240s) << "a minute after the 120 s of the first were over";
  EXPECT_LE(refreshes[1], 241s);
}

TEST_F(ScheduleTest, TheClockRunsDuringThePause) {
  program_.Set(kPause, kTrue);
  program_.Set(kRefreshTooltip, kTrue);
  program_.Start();
  program_.Host.RunFor(91s);
  EXPECT_THAT(Refreshes(), ElementsAre(30s, 60s));
}

TEST_F(ScheduleTest, TheDelayedStartSkipsItsRefreshDuringACycleAndStillChecks) {
  AnswerAfter(20s);
  program_.Set(kAutoUpdateEnable, kFalse);
  program_.Set(kPause, kTrue);
  program_.Set(kRefreshTooltip, kTrue);
  program_.Set(kCheckForNewVersion, kTrue);
  program_.Start();
  program_.Host.RunFor(25s);
  program_.Host.Choose("RefreshNow");
  program_.Host.RunFor(5min);
  EXPECT_THAT(program_.Host.Trace({"agent"}),
              ElementsAre("agent start 1 Content.dat", "agent start 2 che.wt",
                          "agent write 1 Content.log", "agent write 2 chet.wt"));
}

TEST_F(ScheduleTest, ATickInsideAnOpenBoxRefreshes) {
  program_.Host.Boxes.Add({.OpenFor = 90s});
  program_.Set(kRuns, "");
  program_.Start();
  EXPECT_THAT(Refreshes(), ElementsAre(1min));
}

}  // namespace
}  // namespace quillbox
