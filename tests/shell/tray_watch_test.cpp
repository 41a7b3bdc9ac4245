// A tray that comes late or restarts, and a program that is started again.
#include <gmock/gmock.h>

#include "simulated/used_program.h"

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

TEST(TrayWatch, WithAPrimaryAccountTheTooltipHoldsItsFigures) {
  UsedProgram program;
  program.FetchFigures();
  program.Start();
  const std::string figures = program.State().TooltipText;
  ASSERT_THAT(figures, testing::HasSubstr("100"));
  program.Host.TrayRestarts();
  EXPECT_EQ(program.State().TooltipText, figures);
  EXPECT_EQ(program.Host.Tray.Tooltip(), figures);
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

}  // namespace
}  // namespace quillbox
