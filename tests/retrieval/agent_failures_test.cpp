// The refresh cycle, with agents that answer late or never.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "retrieval/refreshing_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

using AgentFailures = RefreshingProgram;

constexpr const char* kNoResponse = "balloon Quillbox: No response received";

AgentBehaviour EmptyLogFirst(AgentBehaviour agent) {
  agent.EmptyLogAfter = 1s;
  return agent;
}

TEST_F(AgentFailures, EndTheTurnAndLeaveEverythingReadyForTheNext) {
  AgentBehaviour endsWithItsLog = Answers("0");
  endsWithItsLog.EndAfter = endsWithItsLog.LogAfter;
  struct Case {
    const char* what;
    std::string_view download;
    std::chrono::milliseconds time;  // so long and less than a second more
    bool evaluated;
    std::vector<AgentBehaviour> agents;
  };
  const Case kCases[] = {
      {"silence", kDownloadContent, 120s, false, {AgentBehaviour{}}},
      {"all die", kDownloadAll, 2s, false, {DiesAfter(2s)}},
      {"none starts", kDownloadContent, 0s, false, {NeverStarts()}},
      {"dies behind an empty log", kDownloadContent, 2s, false, {EmptyLogFirst(DiesAfter(2s))}},
      {"one of three dies, and the others are done",
       kDownloadAll,
       7s,
       false,
       {ForFile("Search.dat", DiesAfter(1s)), ForFile("Referral.dat", Answers("0", 7s))}},
      {"just in time", kDownloadContent, 119900ms, true, {Answers("0", 119900ms)}},
      {"ends with its log", kDownloadContent, 400ms, true, {endsWithItsLog}},
      {"an empty log first", kDownloadContent, 9s, true, {EmptyLogFirst(Answers("0", 9s))}},
      {"the first of three is last",
       kDownloadAll,
       20s,
       true,
       {ForFile("Content.dat", Answers("0", 20s))}}};
  Start(kDownloadContent);
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.what);
    program_.Set(kDataToDownload, c.download);
    program_.Host.Store.Put("Accounts", "one", "");
    program_.Host.Agents.Always(Answers("0"));
    for (const AgentBehaviour& agent : c.agents) program_.Host.Agents.Always(agent);
    program_.Host.Effects.Clear();
    const auto time = Refresh();
    EXPECT_GE(time, c.time);
    EXPECT_LT(time, c.time + 1s);
    EXPECT_THAT(program_.Host.Trace({"sound"}), ElementsAre("sound done.wav"));
    const auto balloons = program_.Host.Trace({"balloon"});
    EXPECT_EQ(balloons.size(), c.evaluated ? 0U : 1U);
    EXPECT_THAT(balloons, testing::Each(StartsWith(kNoResponse)));
    EXPECT_EQ(WasEvaluated("one"), c.evaluated);
    EXPECT_TRUE(CanRefresh());
    EXPECT_EQ(program_.Host.Agents.RunningCount(), 0U);
    program_.Host.RunFor(1h);
    EXPECT_THAT(program_.Host.Files.All(), IsEmpty());
  }
}

TEST_F(AgentFailures, AnAnswerThatCameDuringANestedWaitCountsHoweverLateItIsSeen) {
  program_.Host.Agents.Always(Answers("0", 100s));
  Start(kDownloadContent);
  Host ports = program_.Host.Ports();
  program_.Host.After(50s, [ports]() mutable { ports.Events.Sleep(200s); });
  Refresh();
  EXPECT_TRUE(WasEvaluated("one"));
}

TEST_F(AgentFailures, ALateLogIsNotTakenForTheNextAccounts) {
  program_.Host.Agents.Always(ForUser("ann", Answers("3", 130s)));
  program_.Host.Agents.Always(ForUser("bob", Answers("0", 20s)));
  Start(kDownloadContent, 2);
  Refresh();
  EXPECT_THAT(program_.Host.Trace({"balloon"}), ElementsAre(StartsWith(kNoResponse)));
  EXPECT_FALSE(WasEvaluated("one"));
  EXPECT_TRUE(WasEvaluated("two"));
}

TEST_F(AgentFailures, TheCodesStayFromTheLastAnswer) {
  program_.Host.Agents.Always(ForUser("ann", Answers("3")));
  program_.Host.Agents.Always(ForUser("bob", DiesAfter(1s)));
  Start(kDownloadContent, 2);
  Refresh();
  EXPECT_THAT(
      program_.Host.Trace({"balloon"}),
      ElementsAre(StartsWith("balloon Quillbox: You have entered"), StartsWith(kNoResponse)));
  program_.Host.Agents.Always(Answers("0"));
  Refresh();
  EXPECT_TRUE(WasEvaluated("one") && WasEvaluated("two")) << "a new log replaces the kept code";
}

TEST_F(AgentFailures, AFullDiskIsNoResponse) {
  Start(kDownloadContent);
  program_.Host.Files.SetDisk(DiskState::kFull);
  EXPECT_LT(Refresh(), 1s);
  EXPECT_THAT(program_.Host.Trace({"balloon"}), ElementsAre(StartsWith(kNoResponse)));
}

}  // namespace
}  // namespace quillbox
