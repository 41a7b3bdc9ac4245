// The real program on a real tray, with a real pointer.
#include <gmock/gmock.h>
#include <signal.h>

#include "config/setting_keys.h"
#include "desktop/docked_icons.h"
#include "desktop/fake_bus_service.h"
#include "desktop/quillbox_on_desktop.h"
#include "support/rounds.h"

namespace quillbox {
namespace {

using testing::MatchesRegex;
namespace fs = std::filesystem;

using TrayTest = QuillboxOnDesktop;

TEST_F(TrayTest, IconComesEachTimeTheTrayIsLate) {
  LongestWait longest;
  for (int round = 0; round < Rounds(); ++round) {
    Store(SettingBatch().Write(kRuns, "1"));
    quillbox_ = StartQuillbox();
    ASSERT_TRUE(ComesAbout(HasBegun)) << round << Settings();
    EXPECT_TRUE(DockedIcons(desktop_).empty()) << round;
    desktop_.StartTray();
    ASSERT_TRUE(longest.Of([&] { return IconComes(); })) << round;
    desktop_.KillTray();
    quillbox_.reset();
  }
}

TEST_F(TrayTest, IconAndMouseAreBackEachTimeTheTrayWasRestarted) {
  DockIcon();
  LongestWait longest;
  for (int round = 0; round < Rounds(); ++round) {
    SCOPED_TRACE(round);
    desktop_.KillTray();
    ASSERT_TRUE(IconGoes());
    desktop_.StartTray();
    ASSERT_TRUE(longest.Of([&] { return IconComes(); }));
    ExpectHoverWorks();
    PointAtIcon();
    ASSERT_THAT(OpenedBy([&] { Mouse("click 1"); }), MatchesRegex(kVisit));
  }
}

TEST_F(TrayTest, ASecondStartEndsAndLeavesNoTrace) {
  DockIcon();
  ASSERT_TRUE(ComesAbout(HasBegun));
  folder_.Put("Content.dat", "of the first one");
  const std::string settings = Settings();

  const auto second = StartQuillbox();
  ASSERT_TRUE(second->waitForFinished());
  EXPECT_EQ(second->exitCode(), 0);
  EXPECT_EQ(Settings(), settings);
  EXPECT_TRUE(fs::exists(Path("Content.dat")));
  EXPECT_EQ(DockedIcons(desktop_).size(), 1U);
  EXPECT_EQ(quillbox_->state(), QProcess::Running);
}

TEST_F(TrayTest, WindowStaysWhileTheCursorMovesOverTheIconAndGivesWayToTheMenu) {
  DockIcon();
  PointAtIcon();
  ASSERT_TRUE(TooltipComes());
  for (int move = 0; move < 40; ++move) {
    Mouse(move % 2 == 0 ? "mousemove_relative 3 0" : "mousemove_relative -- -3 0");
    ASSERT_TRUE(TooltipIsShown()) << move;
  }
  OpenMenu();
  EXPECT_FALSE(TooltipIsShown());
  Mouse("mousemove_relative 2 0");
  Settle();
  EXPECT_FALSE(TooltipIsShown()) << "under the open menu";

  Mouse("key Escape");
  ASSERT_TRUE(MenuGoes());
  ExpectHoverWorks();
  OpenMenu();
  PointElsewhere();
  Mouse("click 1");
  EXPECT_TRUE(MenuGoes());
  EXPECT_EQ(quillbox_->state(), QProcess::Running);
}

TEST_F(TrayTest, ATrayThatGoesUnderTheOpenMenuTakesNothingElseWithIt) {
  DockIcon();
  OpenMenu();
  desktop_.KillTray();
  ASSERT_TRUE(IconGoes());
  desktop_.StartTray();
  ASSERT_TRUE(IconComes());
  Mouse("key Escape");
  ASSERT_TRUE(MenuGoes());
  ExpectHoverWorks();
}

TEST_F(TrayTest, ClicksRunOneActionEach) {
  static const struct Case {
    const char* clicks;
    const char* opened;
  } kCases[] = {
      {"click 1", kVisit},
      {"click --repeat 2 --delay 40 1", kOpenAccount},
      {"click --repeat 2 --delay 300 1", kVisit},
  };
  DockIcon();
  PointAtIcon();
  for (const Case& c : kCases) {
    EXPECT_THAT(OpenedBy([&] { Mouse(c.clicks); }), MatchesRegex(c.opened)) << c.clicks;
  }
}

TEST_F(TrayTest, ExitInTheMenuEndsTheProcessAndItsAgentsInTheMiddleOfARefresh) {
  WriteScript("dl", "cd " + folder_.Path() + "; echo $$ > new; mv new agent; exec sleep 600");
  Store(SettingBatch().Write(kRefreshTooltip, kTrue).Write(kDataToDownload, kDownloadContent));
  folder_.Put("Content.dat", "of a run that died");
  DockIcon();
  ASSERT_TRUE(ComesAbout([&] { return fs::exists(Path("agent")); }));
  EXPECT_FALSE(fs::exists(Path("Content.dat")));

  OpenMenu();
  Mouse("key Up Return");
  ASSERT_TRUE(quillbox_->waitForFinished());
  EXPECT_EQ(quillbox_->exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(quillbox_->exitCode(), 0);
  EXPECT_TRUE(DockedIcons(desktop_).empty());
  EXPECT_NE(::kill(std::stoi(folder_.Content("agent")), 0), 0);
}

}  // namespace
}  // namespace quillbox
