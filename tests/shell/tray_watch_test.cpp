// A tray that comes late or restarts.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulated/sample_report.h"
#include "simulated/simulated_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::StartsWith;

void WithOneAccount(SimulatedProgram& program) {
  program.UsedBefore();
  program.AddAccount("one", "ann", "x");
  program.Set(kDataToDownload, kDownloadContent);
}

TEST(TrayWatch, TheIconComesWithALateTray) {
  SimulatedProgram program;
  program.UsedBefore();
  program.Host.Tray.SetPresent(false);
  program.Start();
  EXPECT_FALSE(program.Host.Tray.HasIcon());
  program.Host.RunFor(10min);
  program.Host.TrayAppears();
  EXPECT_TRUE(program.Host.Tray.HasIcon());
}

TEST(TrayWatch, WithoutAPrimaryAccountTheTooltipIsTheProgramsName) {
  SimulatedProgram program;
  WithOneAccount(program);
  program.Start();
  program.Host.TrayRestarts();
  EXPECT_TRUE(program.Host.Tray.HasIcon());
  EXPECT_EQ(program.State().TooltipText, "Quillbox");
  EXPECT_EQ(program.Host.Tray.Tooltip(), "Quillbox");
}

TEST(TrayWatch, WithAPrimaryAccountTheTooltipHoldsItsFigures) {
  SimulatedProgram program;
  WithOneAccount(program);
  program.Set(kPrimaryAccount, "one");
  program.Set(kTooltipValues, "AB");
  program.Set(kRefreshTooltip, kTrue);
  program.Host.Agents.Always(Answers("0"));
  program.Start();
  const std::string figures = program.State().TooltipText;
  ASSERT_THAT(figures, testing::HasSubstr("100"));
  program.Host.TrayRestarts();
  EXPECT_EQ(program.State().TooltipText, figures);
  EXPECT_EQ(program.Host.Tray.Tooltip(), figures);
}

TEST(TrayWatch, TheTrayCanRestartInTheMiddleOfARefresh) {
  SimulatedProgram program;
  WithOneAccount(program);
  program.Host.Agents.Always(Answers("1"));
  program.Start();
  program.Host.After(200ms, [&program] { program.Host.TrayRestarts(); });
  program.Host.Effects.Clear();
  program.Host.Choose("RefreshNow");
  EXPECT_THAT(program.Host.Trace({"tray", "balloon"}),
              ElementsAre("tray add", "tray modify",
                          "balloon Quillbox: Could not connect to "
                          "example.test!"));
}

TEST(TrayWatch, ANewTrayGetsTheLastBalloonAgain) {
  SimulatedProgram program;
  WithOneAccount(program);
  program.Start();
  program.Host.Choose("RefreshNow");
  program.Host.Effects.Clear();
  program.Host.TrayRestarts();
  EXPECT_THAT(program.Host.Trace({"tray", "balloon"}),
              ElementsAre("tray add", StartsWith("balloon Quillbox: Could not connect")));
  EXPECT_EQ(program.Host.Tray.Record().szTip.Text(), "Could not connect to example.test!");
}

}  // namespace
}  // namespace quillbox
