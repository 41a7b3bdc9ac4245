// How long a check waits, and that there is one at a time.
#include <gmock/gmock.h>

#include "simulated/used_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::SizeIs;

class VersionWaitTest : public testing::Test {
 protected:
  void Start(const AgentBehaviour& agent) {
    host_.Agents.Always(agent);
    program_.StartQuietly();
  }
  void Ask() { host_.Choose("CheckForNewVersion"); }

  UsedProgram program_;
  SimulatedHost& host_ = program_.Host;
};

TEST_F(VersionWaitTest, EndsWithTheLogOrWithTheAgentOrAfterTwoMinutes) {
  AgentBehaviour answers = Answers("0", 5s);
  answers.Data = "1.3.0";
  answers.EmptyLogAfter = 1s;
  AgentBehaviour silent;
  silent.Data = "1.3.1";
  struct Case {
    const char* what;
    AgentBehaviour agent;
    std::chrono::milliseconds time;
    const char* box;
  };
  const Case kCases[] = {{"a log that fills", answers, 5s, "latest version"},
                         {"silence", silent, 120s, "failed!"},
                         {"an agent that ended", DiesAfter(2s), 2s, "failed!"},
                         {"no agent", NeverStarts(), 0s, "failed!"}};
  for (const Case& c : kCases) {
    UsedProgram program;
    program.Host.Agents.Always(c.agent);
    program.Start();
    const TimePoint asked = program.Host.Time.Now();
    program.Host.Choose("CheckForNewVersion");
    EXPECT_GE(program.Host.Time.Now() - asked, c.time) << c.what;
    EXPECT_LT(program.Host.Time.Now() - asked, c.time + 10ms) << c.what;
    ASSERT_THAT(program.Host.Boxes.Shown(), SizeIs(1)) << c.what;
    EXPECT_THAT(program.Host.Boxes.Shown()[0].Text, testing::HasSubstr(c.box)) << c.what;
    EXPECT_EQ(program.Host.Agents.RunningCount(), 0U) << c.what;
  }
}

TEST_F(VersionWaitTest, ASecondCheckIsSkippedWhileOneWaitsOrAsks) {
  AgentBehaviour agent = Answers("0", 10s);
  agent.Data = "1.3.1";
  Start(agent);
  host_.After(3s, [this] { Ask(); });
  host_.Boxes.Add({.Part = "available", .WhileOpen = [this] { Ask(); }});
  Ask();
  EXPECT_THAT(host_.Agents.Starts(), SizeIs(1));
  EXPECT_THAT(host_.Boxes.Shown(), SizeIs(1));
  Ask();
  EXPECT_THAT(host_.Agents.Starts(), SizeIs(2)) << "the next one is free again";
}

TEST_F(VersionWaitTest, WhoAsksDuringAnAutomaticCheckIsToldWhatItFinds) {
  AgentBehaviour agent = Answers("0", 10s);
  agent.Data = "1.3.0";
  host_.Agents.Always(agent);
  program_.Set(kCheckForNewVersion, kTrue);
  host_.After(3s, [this] { Ask(); });
  program_.Start();
  EXPECT_THAT(host_.Agents.Starts(), SizeIs(1));
  ASSERT_THAT(host_.Boxes.Shown(), SizeIs(1));
  EXPECT_THAT(host_.Boxes.Shown()[0].Text, testing::HasSubstr("latest version"));
}

}  // namespace
}  // namespace quillbox
