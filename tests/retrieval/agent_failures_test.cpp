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
  struct Case {
    const char* what;
    std::string_view download;
    std::vector<AgentBehaviour> agents;
    std::chrono::milliseconds time;  // so long and less than a second more
  };
  const Case kCases[] = {
      {"silence", kDownloadContent, {AgentBehaviour{}}, 120s},
      {"all die", kDownloadAll, {DiesAfter(2s)}, 2s},
      {"none starts", kDownloadContent, {NeverStarts()}, 0s},
      {"dies behind an empty log", kDownloadContent, {EmptyLogFirst(DiesAfter(2s))}, 2s},
      {"one of three dies, and the others are done",
       kDownloadAll,
       {ForFile("Search.dat", DiesAfter(1s)), ForFile("Referral.dat", Answers("0", 7s))},
       7s}};
  Start(kDownloadContent);
  for (const Case& c : kCases) {
    program_.Set(kDataToDownload, c.download);
    program_.Host.Agents.Always(Answers("0"));
    for (const AgentBehaviour& agent : c.agents) program_.Host.Agents.Always(agent);
    program_.Host.Effects.Clear();
    const auto time = Refresh();
    EXPECT_GE(time, c.time) << c.what;
    EXPECT_LT(time, c.time + 1s) << c.what;
    EXPECT_THAT(program_.Host.Trace({"balloon", "sound"}),
                ElementsAre(StartsWith(kNoResponse), "sound done.wav"))
        << c.what;
    EXPECT_FALSE(WasEvaluated("one")) << c.what;
    EXPECT_TRUE(CanRefresh()) << c.what;
    EXPECT_EQ(program_.Host.Agents.RunningCount(), 0U) << c.what;
    program_.Host.RunFor(1h);
    EXPECT_THAT(program_.Host.Files.All(), IsEmpty()) << c.what;
  }
}

TEST_F(AgentFailures, AreNotWhatAnswersInTime) {
  AgentBehaviour endsWithItsLog = Answers("0");
  endsWithItsLog.EndAfter = endsWithItsLog.LogAfter;
  struct Case {
    const char* what;
    std::string_view download;
    AgentBehaviour agent;
    std::chrono::milliseconds time;
  };
  const Case kCases[] = {
      {"just in time", kDownloadContent, Answers("0", 119900ms), 119900ms},
      {"ends with its log", kDownloadContent, endsWithItsLog, 400ms},
      {"an empty log first", kDownloadContent, EmptyLogFirst(Answers("0", 9s)), 9s},
      {"the first of three is last", kDownloadAll, ForFile("Content.dat", Answers("0", 20s)), 20s}};
  Start(kDownloadContent);
  for (const Case& c : kCases) {
    program_.Host.Store.Put("Accounts", "one", "");
    program_.Set(kDataToDownload, c.download);
    program_.Host.Agents.Always(c.agent);
    const auto time = Refresh();
    EXPECT_GE(time, c.time) << c.what;
    EXPECT_LT(time, c.time + 1s) << c.what;
    EXPECT_TRUE(WasEvaluated("one")) << c.what;
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
