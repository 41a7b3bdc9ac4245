// Scripted runs of the fetch program.
#include <gmock/gmock.h>

#include "simulated/agent_text.h"
#include "simulated/sample_report.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::Optional;

constexpr const char* kContentOfAnn =
    "Email=%61%6e%6e&Passwd=%78%#%https://h/p|/d/Content.dat|/d/Content.log";
constexpr const char* kSearchOfBob =
    "Email=%62%6f%62&Passwd=%78%#%https://h/p|/d/Search.dat|/d/Search.log";

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
  AgentBehaviour behaviour = Answers("0");
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
  EXPECT_EQ(LogOfRun(kContentOfAnn, "/d/Content.log"), "1") << "nothing fits";
  agents_.Always(Answers("0"));
  agents_.Always(ForUser("bob", Answers("3")));
  agents_.Once(ForFile("Content.dat", Answers("2")));
  EXPECT_EQ(LogOfRun(kSearchOfBob, "/d/Search.log"), "3");
  EXPECT_EQ(LogOfRun(kContentOfAnn, "/d/Content.log"), "2") << "once";
  EXPECT_EQ(LogOfRun(kContentOfAnn, "/d/Content.log"), "0") << "then always";
}

TEST(AgentText, IsCutFromTheRight) {
  const AgentText read =
      ReadAgentText("Email=%61%40%62&Passwd=%31|%#%2%#%https://h/p?q|/app/a b.dat|/app/a.log");
  EXPECT_EQ(read.Username, "a@b");
  EXPECT_EQ(read.Password, "1|%#%2");
  EXPECT_EQ(read.Address, "https://h/p?q");
  EXPECT_EQ(read.DataPath, "/app/a b.dat");
  EXPECT_EQ(read.LogPath, "/app/a.log");
}

}  // namespace
}  // namespace quillbox
