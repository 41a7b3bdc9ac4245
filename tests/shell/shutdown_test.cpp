// The way out.
#include <gmock/gmock.h>

#include "simulated/used_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

TEST(Shutdown, TheIconGoesThenTheFormsThenTheProcess) {
  UsedProgram program;
  program.Start();
  program.Host.Choose("Options");
  program.Host.Effects.Clear();
  program.Host.Choose("Exit");
  EXPECT_THAT(program.Host.Trace(), ElementsAre("menu Exit", "tray delete", "close Opts", "exit"));
}

TEST(Shutdown, AbandonsARefreshWhereItStands) {
  UsedProgram program;
  AgentBehaviour silent;
  silent.Data = "half a rep";
  program.Host.Agents.Always(silent);
  program.StartQuietly();
  program.Host.After(5s, [&program] { program.Host.Choose("Exit"); });
  program.Host.Choose("RefreshNow");
  EXPECT_TRUE(program.Host.Ended());
  EXPECT_THAT(program.Host.Trace({"tray", "exit", "delete", "store", "sound", "balloon"}),
              ElementsAre("tray delete", "exit"));
  EXPECT_EQ(program.Host.Agents.RunningCount(), 0U) << "ended with the program";
}

TEST(Shutdown, LeavesABoxInsideARefreshInsideAStart) {
  SimulatedProgram program;
  program.Set(kRefreshTooltip, kTrue);
  program.Host.Boxes.Add({.OpenFor = 10s});
  program.Host.After(3s, [&program] { program.Host.Choose("Exit"); });
  program.Start();
  EXPECT_TRUE(program.Host.Ended());
  EXPECT_EQ(program.Host.Time.Now(), 3s);
  EXPECT_EQ(program.Setting(kRuns), "") << "the start was not done";
}

}  // namespace
}  // namespace quillbox
