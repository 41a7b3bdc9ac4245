// A tray that comes late or restarts, a program that is started again, and the way out.
#include <gmock/gmock.h>

#include "simulated/context_on_state.h"
#include "simulated/used_program.h"
#include "tray/tray_icon.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kNoConnection = "balloon Quillbox: Could not connect to example.test!";

TEST(TrayWatch, TheIconComesWithALateTray) {
  UsedProgram program;
  program.Host.Tray.SetPresent(false);
  program.Start();
  program.Host.RunFor(10min);
  program.Host.TrayAppears();
  EXPECT_TRUE(program.Host.Tray.HasIcon());
  EXPECT_EQ(program.State().TooltipText, "Quillbox") << "without a primary account";
  EXPECT_EQ(program.Host.Tray.Tooltip(), "Quillbox");
}

TEST(TrayWatch, TheTrayCanRestartInTheMiddleOfARefresh) {
  UsedProgram program;
  program.StartQuietly();
  program.Host.After(200ms, [&program] { program.Host.TrayRestarts(); });
  program.Host.Choose("RefreshNow");
  EXPECT_THAT(program.Host.Trace({"tray", "balloon"}),
              ElementsAre("tray add", "tray modify", kNoConnection));
  program.Host.Effects.Clear();
  program.Host.TrayRestarts();
  EXPECT_THAT(program.Host.Trace({"tray", "balloon"}), ElementsAre("tray add", kNoConnection))
      << "a new tray gets the last balloon again";
  EXPECT_EQ(program.Host.Tray.Record().szTip.Text(), "Could not connect to example.test!");
}

class TrayIconTest : public ContextOnState {};

TEST_F(TrayIconTest, ANewPictureBringsNoOldBalloonBack) {
  ShowBalloon(program_, "text");
  UpdateTrayIcon(program_);
  EXPECT_EQ(host_.Tray.Record().uFlags, 7U);
}

TEST(SecondStart, WakesTheFirstAndLeavesNoTrace) {
  UsedProgram program;
  program.FetchFigures();
  program.Host.Instance.SetAnotherRuns(true);
  program.Start();
  EXPECT_TRUE(program.Host.Ended());
  EXPECT_THAT(program.Host.Trace(), ElementsAre("wake", "tray delete, no icon", "exit"));
  EXPECT_THAT(program.Host.Files.All(), IsEmpty());
}

TEST(SecondStart, BringsALostIconBackWithItsFigures) {
  UsedProgram program;
  program.FetchFigures();
  program.StartQuietly();
  program.Host.LaunchAgain();
  EXPECT_THAT(program.Host.Trace(), ElementsAre("tray modify")) << "the icon is there";
  const std::string figures = program.State().TooltipText;
  program.Host.Tray.LoseIcon();
  program.Host.Effects.Clear();
  program.Host.LaunchAgain();
  EXPECT_THAT(program.Host.Trace(), ElementsAre("tray modify, no icon", "tip Quillbox", "tray add",
                                                "tip " + figures, "tray modify"));
  EXPECT_EQ(program.State().TooltipText, figures);
}

TEST(SecondStart, OpensTheOptionsWhenThereIsNoTrayToShowTheIconIn) {
  UsedProgram program;
  program.Host.Tray.SetPresent(false);
  program.StartQuietly();
  program.Host.LaunchAgain();
  program.Host.LaunchAgain();
  EXPECT_THAT(program.Host.Trace({"form"}), ElementsAre("form Opts")) << "once";
}

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

}  // namespace
}  // namespace quillbox
