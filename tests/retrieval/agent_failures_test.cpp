// The refresh cycle, with agents that never answer.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "retrieval/refreshing_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class AgentFailures : public RefreshingProgram {
 protected:
  std::chrono::milliseconds TimeOfRefresh() {
    const TimePoint begin = program_.Host.Time.Now();
    Refresh();
    return program_.Host.Time.Now() - begin;
  }

  // The turn ended without an answer, and everything is ready for the next refresh.
  void ExpectNoResponse(const std::string& what) {
    EXPECT_THAT(program_.Host.Trace({"balloon", "sound"}),
                ElementsAre(StartsWith("balloon Quillbox: No response received"), "sound done.wav"))
        << what;
    EXPECT_FALSE(WasEvaluated("one")) << what;
    EXPECT_FALSE(program_.State().RefreshRunning) << what;
    EXPECT_TRUE(CanRefresh()) << what;
    EXPECT_EQ(program_.Host.Agents.RunningCount(), 0U) << what;
    program_.Host.RunFor(1h);
    EXPECT_THAT(WorkingFiles(), IsEmpty()) << what;
  }
};

TEST_F(AgentFailures, SilenceEndsAfterTwoMinutes) {
  program_.Host.Agents.Always(AgentBehaviour{});
  Start(kDownloadContent);
  const auto time = TimeOfRefresh();
  EXPECT_GE(time, 120s);
  EXPECT_LT(time, 121s);
  ExpectNoResponse("silent");
}

TEST_F(AgentFailures, AnswerJustInTimeCounts) {
  AgentBehaviour late = Answers("0");
  late.LogAfter = 119900ms;
  program_.Host.Agents.Always(late);
  Start(kDownloadContent);
  Refresh();
  EXPECT_TRUE(WasEvaluated("one"));
}

TEST_F(AgentFailures, AnAnswerThatCameDuringANestedWaitCountsHoweverLateItIsSeen) {
  AgentBehaviour late = Answers("0");
  late.LogAfter = 100s;
  program_.Host.Agents.Always(late);
  Start(kDownloadContent);
  Host ports = program_.Host.Ports();
  program_.Host.After(50s, [ports]() mutable { ports.Events.Sleep(200s); });
  Refresh();
  EXPECT_TRUE(WasEvaluated("one"));
}

TEST_F(AgentFailures, ADeadAgentEndsTheWaitAtOnce) {
  AgentBehaviour dies;
  dies.EndAfter = 2s;
  program_.Host.Agents.Always(dies);
  Start(kDownloadAll);
  EXPECT_LT(TimeOfRefresh(), 3s);
  ExpectNoResponse("dead");
}

TEST_F(AgentFailures, AnAgentThatNeverStartsEndsTheWaitAtOnce) {
  AgentBehaviour missing;
  missing.Starts = false;
  program_.Host.Agents.Always(missing);
  Start(kDownloadContent);
  EXPECT_LT(TimeOfRefresh(), 1s);
  ExpectNoResponse("not started");
}

TEST_F(AgentFailures, AnAgentThatDiesBehindAnEmptyLogEndsTheWait) {
  AgentBehaviour dies;
  dies.EmptyLogAfter = 1s;
  dies.EndAfter = 2s;
  program_.Host.Agents.Always(dies);
  Start(kDownloadContent);
  EXPECT_LT(TimeOfRefresh(), 3s);
  ExpectNoResponse("empty log");
}

TEST_F(AgentFailures, OneDeadAmongThreeIsNoticedWhenTheOthersAreDone) {
  AgentBehaviour dies;
  dies.DataFile = "Search.dat";
  dies.EndAfter = 1s;
  program_.Host.Agents.Always(dies);
  AgentBehaviour slow = Answers("0");
  slow.DataFile = "Referral.dat";
  slow.LogAfter = 7s;
  program_.Host.Agents.Always(slow);
  Start(kDownloadAll);
  const auto time = TimeOfRefresh();
  EXPECT_GE(time, 7s);
  EXPECT_LT(time, 8s);
  ExpectNoResponse("one of three");
}

TEST_F(AgentFailures, AnAgentThatEndsRightWithItsLogHasAnswered) {
  AgentBehaviour agent = Answers("0");
  agent.EndAfter = agent.LogAfter;
  program_.Host.Agents.Always(agent);
  Start(kDownloadContent);
  Refresh();
  EXPECT_TRUE(WasEvaluated("one"));
}

TEST_F(AgentFailures, OnlyTheTurnThatFailedIsLost) {
  AgentBehaviour silent;
  silent.Username = "ann";
  program_.Host.Agents.Always(silent);
  Start(kDownloadContent, 2);
  Refresh();
  EXPECT_FALSE(WasEvaluated("one"));
  EXPECT_TRUE(WasEvaluated("two"));
}

TEST_F(AgentFailures, ALateLogIsNotTakenForTheNextAccounts) {
  AgentBehaviour late = Answers("3");
  late.Username = "ann";
  late.LogAfter = 130s;
  program_.Host.Agents.Always(late);
  AgentBehaviour slow = Answers("0");
  slow.Username = "bob";
  slow.LogAfter = 20s;
  program_.Host.Agents.Always(slow);
  Start(kDownloadContent, 2);
  Refresh();
  EXPECT_THAT(program_.Host.Trace({"balloon"}),
              ElementsAre(StartsWith("balloon Quillbox: No response received")));
  EXPECT_TRUE(WasEvaluated("two"));
}

TEST_F(AgentFailures, TheCodesStayFromTheLastAnswer) {
  AgentBehaviour refused = Answers("3");
  refused.Username = "ann";
  AgentBehaviour unreadable;
  unreadable.Username = "bob";
  unreadable.EndAfter = 1s;
  program_.Host.Agents.Always(refused);
  program_.Host.Agents.Always(unreadable);
  program_.AddAccount("one", "ann", "x");
  program_.AddAccount("two", "bob", "y");
  program_.AddAccount("three", "cyd", "z");
  program_.Set(kDataToDownload, kDownloadContent);
  program_.Start();
  program_.Host.Effects.Clear();
  Refresh();
  EXPECT_THAT(program_.Host.Trace({"balloon"}),
              ElementsAre(StartsWith("balloon Quillbox: You have entered"),
                          StartsWith("balloon Quillbox: No response")));
  EXPECT_TRUE(WasEvaluated("three")) << "its own log replaces the kept code";
}

TEST_F(AgentFailures, AFullDiskIsNoResponse) {
  Start(kDownloadContent);
  program_.Host.Files.SetDisk(DiskState::kFull);
  EXPECT_LT(TimeOfRefresh(), 1s);
  ExpectNoResponse("full disk");
}

}  // namespace
}  // namespace quillbox
