// A second start while the program runs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulated/sample_report.h"
#include "simulated/simulated_program.h"

namespace quillbox {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SecondStart, WakesTheFirstAndLeavesNoTrace) {
  SimulatedProgram program;
  program.Set(kRefreshTooltip, kTrue);
  program.Host.Instance.SetAnotherRuns(true);
  program.Start();
  EXPECT_TRUE(program.Host.Ended());
  EXPECT_THAT(program.Host.Trace({"wake", "exit"}), ElementsAre("wake", "exit"));
  EXPECT_THAT(program.Host.Trace({"store", "agent", "box", "form", "write"}), IsEmpty());
  EXPECT_FALSE(program.Host.Tray.HasIcon());
}

TEST(SecondStart, ChangesNothingForARunningProgramWithItsIcon) {
  SimulatedProgram program;
  program.UsedBefore();
  program.Start();
  program.Host.Effects.Clear();
  program.Host.LaunchAgain();
  EXPECT_THAT(program.Host.Trace(), ElementsAre("tray modify"));
}

TEST(SecondStart, BringsALostIconBackWithItsFigures) {
  SimulatedProgram program;
  program.UsedBefore();
  program.AddAccount("one", "ann", "x");
  program.Set(kPrimaryAccount, "one");
  program.Set(kTooltipValues, "AB");
  program.Set(kRefreshTooltip, kTrue);
  program.Set(kDataToDownload, kDownloadContent);
  program.Host.Agents.Always(Answers("0"));
  program.Start();
  const std::string figures = program.State().TooltipText;
  program.Host.Tray.LoseIcon();
  program.Host.Effects.Clear();
  program.Host.LaunchAgain();
  EXPECT_THAT(program.Host.Trace(), ElementsAre("tray modify, no icon", "tip Quillbox", "tray add",
                                                "tip " + figures, "tray modify"));
  EXPECT_EQ(program.State().TooltipText, figures);
}

}  // namespace
}  // namespace quillbox
