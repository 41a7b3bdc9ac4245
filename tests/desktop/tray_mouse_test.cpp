// Hover and clicks on the icon of the real program, in a dock and at a StatusNotifier host.
#include <gmock/gmock.h>

#include <QThread>

#include "config/account_list.h"
#include "config/setting_keys.h"
#include "desktop/docked_icons.h"
#include "desktop/played_watcher.h"
#include "desktop/quillbox_on_desktop.h"
#include "desktop/rounds.h"

namespace quillbox {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// Of a click that is one action too many, to be seen.
void Settle() {
  QThread::msleep(500);
}

const auto kSingle = testing::StrEq("https://quillbox.example.test");
const auto kDouble = HasSubstr("/accounts/ServiceLoginAuth?");

// A single click visits the maker's site, a double click opens the account.
class TrayMouseTest : public QuillboxOnDesktop {
 protected:
  void SetUp() override {
    QuillboxOnDesktop::SetUp();
    SettingBatch settings;
    SaveAccountList(settings, {{"one"}, {"a@example.test"}, {"a\"b c#%41"}});
    settings.Write(kPrimaryAccount, "one")
        .Write(kTraySingleAction, kActionVisit)
        .Write(kTrayAction, kActionOpenAccount);
    Store(settings);
  }

  void DockIcon() {
    desktop_.StartTray();
    quillbox_ = StartQuillbox();
    ASSERT_TRUE(IconComes());
  }

  bool Opens(std::size_t addresses) {
    return ComesAbout([&] { return Opened().size() >= addresses; });
  }
  bool TooltipComes() {
    return ComesAbout([&] { return TooltipIsShown(); });
  }
  bool TooltipGoes() {
    return ComesAbout([&] { return !TooltipIsShown(); });
  }
  void ExpectHoverWorks() {
    PointElsewhere();
    PointAtIcon();
    EXPECT_TRUE(TooltipComes());
    PointElsewhere();
    EXPECT_TRUE(TooltipGoes());
  }

  OwnedProcess quillbox_;
};

TEST_F(TrayMouseTest, RestOnTheIconOpensTheWindowAndLeavingClosesIt) {
  DockIcon();
  for (int round = 0; round < Rounds(); ++round) ExpectHoverWorks();
  EXPECT_EQ(quillbox_->state(), QProcess::Running);
}

TEST_F(TrayMouseTest, WindowStaysWhileTheCursorMovesOverTheIcon) {
  DockIcon();
  PointAtIcon();
  ASSERT_TRUE(TooltipComes());
  for (int move = 0; move < 40; ++move) {
    Mouse(move % 2 == 0 ? "mousemove_relative 3 0" : "mousemove_relative -- -3 0");
    ASSERT_TRUE(TooltipIsShown()) << move;
  }
}

TEST_F(TrayMouseTest, RightButtonClosesTheWindowThenOpensTheMenu) {
  DockIcon();
  PointAtIcon();
  ASSERT_TRUE(TooltipComes());
  Mouse("click 3");
  ASSERT_TRUE(MenuComes());
  EXPECT_FALSE(TooltipIsShown());
  Mouse("mousemove_relative 2 0");
  Settle();
  EXPECT_FALSE(TooltipIsShown()) << "under the open menu";

  Mouse("key Escape");
  ASSERT_TRUE(MenuGoes());
  ExpectHoverWorks();

  PointAtIcon();
  Mouse("click 3");
  ASSERT_TRUE(MenuComes());
  PointElsewhere();
  Mouse("click 1");
  EXPECT_TRUE(MenuGoes());
  EXPECT_EQ(quillbox_->state(), QProcess::Running);
}

TEST_F(TrayMouseTest, ATrayThatGoesUnderTheOpenMenuTakesNothingElseWithIt) {
  DockIcon();
  PointAtIcon();
  Mouse("click 3");
  ASSERT_TRUE(MenuComes());
  desktop_.KillTray();
  ASSERT_TRUE(IconGoes());
  desktop_.StartTray();
  ASSERT_TRUE(IconComes());
  Mouse("key Escape");
  ASSERT_TRUE(MenuGoes());
  ExpectHoverWorks();
}

TEST_F(TrayMouseTest, ClicksRunOneActionEach) {
  static const struct Case {
    const char* clicks;
    bool twice;
  } kCases[] = {
      {"click 1", false},
      {"click --repeat 2 --delay 40 1", true},
      {"click --repeat 2 --delay 300 1", false},
  };
  DockIcon();
  PointAtIcon();
  for (const Case& c : kCases) {
    std::filesystem::remove(Path("opened"));
    Mouse(c.clicks);
    ASSERT_TRUE(Opens(1)) << c.clicks;
    Settle();
    if (c.twice) {
      EXPECT_THAT(Opened(), ElementsAre(kDouble)) << c.clicks;
    } else {
      EXPECT_THAT(Opened(), ElementsAre(kSingle)) << c.clicks;
    }
  }
}

TEST_F(TrayMouseTest, MouseWorksAfterEachRestartOfTheTray) {
  DockIcon();
  for (int round = 0; round < Rounds(); ++round) {
    desktop_.KillTray();
    ASSERT_TRUE(IconGoes()) << round;
    desktop_.StartTray();
    ASSERT_TRUE(IconComes()) << round;
    ExpectHoverWorks();
    std::filesystem::remove(Path("opened"));
    PointAtIcon();
    Mouse("click 1");
    ASSERT_TRUE(Opens(1)) << round;
    EXPECT_THAT(Opened(), ElementsAre(kSingle)) << round;
  }
}

// A host that a test plays: it can only activate.
class StatusNotifierMouseTest : public TrayMouseTest {
 protected:
  void Register() {
    watcher_.HasHost = true;
    watcher_.Appear();
    quillbox_ = StartQuillbox();
    AwaitIcon(1);
  }
  void AwaitIcon(std::size_t number) {
    const auto icons = [&] { return watcher_.Calls("RegisterStatusNotifierItem"); };
    ASSERT_TRUE(ComesAbout([&] { return icons().size() == number; }));
    icon_ = icons().back().service();
  }

  void Call(const QString& method) {
    desktop_.Output("dbus-send", {"--print-reply", "--dest=" + icon_, "/StatusNotifierItem",
                                  "org.kde.StatusNotifierItem." + method, "int32:0", "int32:0"});
  }

  PlayedWatcher watcher_{desktop_.BusAddress()};
  QString icon_;
};

TEST_F(StatusNotifierMouseTest, ASecondActivationIsADoubleClick) {
  Register();
  Call("Activate");
  ASSERT_TRUE(Opens(1));
  Settle();
  EXPECT_THAT(Opened(), ElementsAre(kSingle));

  std::filesystem::remove(Path("opened"));
  Call("Activate");
  Call("Activate");
  ASSERT_TRUE(Opens(1));
  Settle();
  EXPECT_THAT(Opened(), ElementsAre(kDouble));
}

TEST_F(StatusNotifierMouseTest, MiddleButtonOpensTheWindowUntilTheCursorMoves) {
  Register();
  for (int round = 0; round < Rounds(); ++round) {
    Mouse("mousemove 400 599");
    Call("SecondaryActivate");
    ASSERT_TRUE(TooltipComes()) << round;
    PointElsewhere();
    ASSERT_TRUE(TooltipGoes()) << round;
  }
}

// The dock is there first, and the host comes while the program looks.
TEST_F(StatusNotifierMouseTest, APanelOfBothKindsIsTakenForTheKindThatQtFound) {
  desktop_.StartTray();
  watcher_.NoesBefore = 1;
  Register();
  watcher_.Signal("StatusNotifierHostRegistered");
  AwaitIcon(2);
  Call("SecondaryActivate");
  EXPECT_TRUE(TooltipComes());
  Call("ContextMenu");
  EXPECT_TRUE(MenuComes());
}

TEST_F(StatusNotifierMouseTest, AHostThatShowsNoMenusGetsOurs) {
  Register();
  Call("ContextMenu");
  ASSERT_TRUE(MenuComes());
  Mouse("key Up Return");
  ASSERT_TRUE(quillbox_->waitForFinished());
  EXPECT_EQ(quillbox_->exitCode(), 0);
}

}  // namespace
}  // namespace quillbox
