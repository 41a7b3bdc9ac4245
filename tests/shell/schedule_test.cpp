// When automatic refreshes happen.
#include <gmock/gmock.h>

#include <vector>

#include "options/opts.h"
#include "simulated/used_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::ElementsAreArray;

class ScheduleTest : public testing::Test {
 protected:
  // The program of a person who lets it refresh at this rate, with an agent that takes so long.
  void Prepare(std::string_view rate, std::chrono::milliseconds agent) {
    program_.Set(kAutoUpdateEnable, kTrue);
    program_.Set(kAutoUpdateRate, rate);
    host_.Agents.Always(Answers("1", agent));
  }
  std::vector<TimePoint> Refreshes() const { return AgentStarts(host_); }

  UsedProgram program_;
  SimulatedHost& host_ = program_.Host;
};

TEST_F(ScheduleTest, KeepsEveryRateForADay) {
  struct Case {
    const char* rate;
    std::chrono::minutes every;
  };
  const Case kCases[] = {
      {"Every minute", 1min},      {"Every 2 minutes", 2min},   {"Every 3 minutes", 3min},
      {"Every 4 minutes", 4min},   {"Every 5 minutes", 5min},   {"Every 10 minutes", 10min},
      {"Every 15 minutes", 15min}, {"Every 20 minutes", 20min}, {"Every 25 minutes", 25min},
      {"Every 30 minutes", 30min}, {"Every 35 minutes", 35min}, {"Every 40 minutes", 40min},
      {"Every 45 minutes", 45min}, {"Every hour", 1h},          {"Every 2 hours", 2h},
      {"Every 3 hours", 3h},       {"Every 4 hours", 4h},       {"Every 5 hours", 5h},
      {"every minute", 15min},     {"Every minute ", 15min},    {"", 15min},
      {"Every 6 hours", 15min}};
  for (const Case& c : kCases) {
    UsedProgram program;
    program.Set(kAutoUpdateEnable, kTrue);
    program.Set(kAutoUpdateRate, c.rate);
    program.Host.Agents.Always(Answers("1", 1s));
    program.Start();
    program.Host.RunFor(24h);
    std::vector<TimePoint> regular;  // from the beginning and from the end of the one before
    for (TimePoint due = c.every; due <= 24h; due += 1s + c.every) regular.push_back(due);
    EXPECT_EQ(AgentStarts(program.Host), regular) << c.rate;
  }
}

TEST_F(ScheduleTest, IsThereWhenEnabledAndConnectedIfThatMatters) {
  struct Case {
    const char *enabled, *whenConnected;
    bool online;
    std::vector<TimePoint> refreshes;
  };
  const Case kCases[] = {{"True", "", false, {60s}},    {"True", "true", false, {60s}},
                         {"True", "True", true, {60s}}, {"True", "True", false, {}},
                         {"true", "", true, {}},        {"", "", true, {}}};
  for (const Case& c : kCases) {
    UsedProgram program;
    program.Set(kAutoUpdateEnable, c.enabled);
    program.Set(kAutoUpdateRate, "Every minute");
    program.Set(kAutoUpdateWhenConnected, c.whenConnected);
    program.Host.Network.SetOnline(c.online);
    program.Start();
    program.Host.RunFor(61s);
    EXPECT_THAT(AgentStarts(program.Host), ElementsAreArray(c.refreshes))
        << c.enabled << "/" << c.whenConnected << "/" << c.online;
  }
}

TEST_F(ScheduleTest, TheMinuteCountStaysInRangeThroughAMonthOffline) {
  Prepare("Every minute", 400ms);
  program_.Set(kAutoUpdateWhenConnected, kTrue);
  host_.Network.SetOnline(false);
  program_.Start();
  host_.RunFor(31 * 24h);
  EXPECT_EQ(program_.State().UpdateMinuteCount, 32767);
  host_.Network.SetOnline(true);
  host_.RunFor(2min);
  EXPECT_FALSE(Refreshes().empty());
}

TEST_F(ScheduleTest, ACycleOnRequestStartsTheCountAnew) {
  Prepare("Every hour", 90s);
  program_.Start();
  host_.RunFor(100min + 10s);
  host_.Choose("RefreshNow");  // over the ticks of 100:30 and 101:30
  host_.RunFor(2h);
  EXPECT_THAT(Refreshes(), ElementsAre(60min, 100min + 10s, 161min + 30s));
}

TEST_F(ScheduleTest, ATickDuringACycleIsSkippedWhole) {
  Prepare("Every 2 minutes", 10s);
  program_.Start();
  host_.RunFor(115s);
  Host ports = host_.Ports();
  host_.After(4s, [ports] { ports.Events.Sleep(3s); });
  host_.After(8s, [this] { EXPECT_EQ(program_.State().UpdateMinuteCount, 1); });
  host_.Choose("RefreshNow");  // until 125 s; the tick of 120 s comes in it, at 122 s
  EXPECT_EQ(program_.State().UpdateMinuteCount, 0);
  host_.RunFor(4min);
  // A swap at 122 s would have begun a fresh minute there; so the clock ticks at 180 s and 240 s.
  EXPECT_THAT(Refreshes(), ElementsAre(115s, 240s));
}

TEST_F(ScheduleTest, AClockThatIsTurnedOffDuringItsOwnRefreshStaysOff) {
  Prepare("Every hour", 30s);
  program_.Start();
  host_.After(1h + 10s, [this] {
    host_.Choose("Options");
    Opts& options = *host_.Windows.Opts();
    options.AutoUpdateFrame.Check7.SetTicked(false);
    options.Command1.Click();
  });
  host_.RunFor(5h);
  EXPECT_THAT(Refreshes(), ElementsAre(60min));
}

TEST_F(ScheduleTest, TheDelayedStartSkipsItsRefreshDuringACycleAndStillChecks) {
  host_.Agents.Always(Answers("1", 20s));
  program_.Set(kPause, kTrue);
  program_.Set(kRefreshTooltip, kTrue);
  program_.Set(kCheckForNewVersion, kTrue);
  program_.Start();
  host_.RunFor(25s);
  host_.Choose("RefreshNow");
  host_.RunFor(5min);
  EXPECT_THAT(host_.Trace({"agent"}),
              ElementsAre("agent start 1 Content.dat", "agent start 2 che.wt",
                          "agent write 1 Content.log", "agent write 2 chet.wt"));
}

}  // namespace
}  // namespace quillbox
