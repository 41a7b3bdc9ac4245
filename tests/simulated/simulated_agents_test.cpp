// Scripted runs of the fetch program.
#include "simulated/simulated_agents.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::Optional;

constexpr const char* kContentOfAnn =
    "Email=%61%6e%6e&Passwd=%78%#%https://h/p|/d/Content.dat|/d/Content.log";
constexpr const char* kSearchOfBob =
    "Email=%62%6f%62&Passwd=%78%#%https://h/p|/d/Search.dat|/d/Search.log";

AgentBehaviour Logs(std::string log) {
  AgentBehaviour behaviour;
  behaviour.Log = std::move(log);
  return behaviour;
}

class SimulatedAgentsTest : public testing::Test {
 protected:
  std::string LogOfRun(const char* text, const char* log) {
    agents_.Start({text, {}});
    time_.RunUntil(time_.Now() + 1min);
    const std::string written = files_.Read(log).value_or("(none)");
    files_.Take(log);
    return written;
  }

  SimulatedTime time_;
  SimulatedFiles files_;
  SimulatedTrace trace_{time_};
  SimulatedAgents agents_{time_, files_, trace_, 1};
};

TEST_F(SimulatedAgentsTest, WritesDataAndLogWhenTheyAreDue) {
  AgentBehaviour behaviour = Logs("0");
  behaviour.Data = "report";
  behaviour.EmptyLogAfter = 350ms;
  agents_.Always(behaviour);
  const AgentId agent = agents_.Start({kContentOfAnn, {}});
  time_.RunUntil(300ms);
  EXPECT_THAT(files_.Read("/d/Content.dat"), Optional(std::string("report")));
  EXPECT_FALSE(files_.Exists("/d/Content.log"));
  time_.RunUntil(399ms);
  EXPECT_THAT(files_.Size("/d/Content.log"), Optional(0U));
  EXPECT_TRUE(agents_.Running(agent));
  time_.RunUntil(400ms);
  EXPECT_THAT(files_.Read("/d/Content.log"), Optional(std::string("0")));
  EXPECT_FALSE(agents_.Running(agent));
  EXPECT_THAT(trace_.Lines(),
              ElementsAre("agent start 1 Content.dat", "agent write 1 Content.dat",
                          "agent write 1 Content.log", "agent write 1 Content.log"));
}

TEST_F(SimulatedAgentsTest, ChoosesTheBehaviourThatFits) {
  AgentBehaviour forBob = Logs("3");
  forBob.Username = "bob";
  AgentBehaviour forContent = Logs("2");
  forContent.DataFile = "Content.dat";
  EXPECT_EQ(LogOfRun(kContentOfAnn, "/d/Content.log"), "1") << "nothing fits";
  agents_.Always(Logs("0"));
  agents_.Always(forBob);
  agents_.Once(forContent);
  EXPECT_EQ(LogOfRun(kSearchOfBob, "/d/Search.log"), "3");
  EXPECT_EQ(LogOfRun(kContentOfAnn, "/d/Content.log"), "2") << "once";
  EXPECT_EQ(LogOfRun(kContentOfAnn, "/d/Content.log"), "0") << "then always";
}

TEST_F(SimulatedAgentsTest, DiesStaysSilentOrNeverStarts) {
  AgentBehaviour dies;
  dies.EndAfter = 2s;
  AgentBehaviour failsToStart;
  failsToStart.Starts = false;
  agents_.Once(dies);
  agents_.Once(AgentBehaviour{});
  agents_.Once(failsToStart);
  const AgentId dying = agents_.Start({kContentOfAnn, {}});
  const AgentId silent = agents_.Start({kContentOfAnn, {}});
  const AgentId missing = agents_.Start({kContentOfAnn, {}});
  EXPECT_TRUE(agents_.Running(dying));
  EXPECT_FALSE(agents_.Running(missing));
  time_.RunUntil(1h);
  EXPECT_FALSE(agents_.Running(dying));
  EXPECT_TRUE(agents_.Running(silent));
  EXPECT_FALSE(files_.Exists("/d/Content.log"));
}

TEST_F(SimulatedAgentsTest, WritesNothingAfterItWasEnded) {
  agents_.Always(Logs("0"));
  agents_.End(agents_.Start({kContentOfAnn, {}}));
  time_.RunUntil(1h);
  EXPECT_FALSE(files_.Exists("/d/Content.log"));
  EXPECT_THAT(trace_.Lines(), ElementsAre("agent start 1 Content.dat", "agent end 1"));
}

TEST_F(SimulatedAgentsTest, AFullDiskKeepsTheLogAway) {
  agents_.Always(Logs("0"));
  files_.SetDisk(DiskState::kFull);
  EXPECT_EQ(LogOfRun(kContentOfAnn, "/d/Content.log"), "(none)");
}

}  // namespace
}  // namespace quillbox
