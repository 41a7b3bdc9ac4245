// The real program on a real tray.
#include <gmock/gmock.h>
#include <signal.h>

#include <filesystem>
#include <fstream>

#include "config/account_list.h"
#include "config/setting_keys.h"
#include "desktop/docked_icons.h"
#include "desktop/fake_bus_service.h"
#include "desktop/played_watcher.h"
#include "desktop/quillbox_on_desktop.h"
#include "desktop/rounds.h"

namespace quillbox {
namespace {

namespace fs = std::filesystem;

class TrayTest : public QuillboxOnDesktop {
 protected:
  void ChooseLastMenuItem() {
    PointAtIcon();
    Mouse("click 3");
    ASSERT_TRUE(MenuComes());
    Mouse("key Up Return");
  }

  // Of the icon that this connection has offered.
  void ExpectTipAndMenu(const QString& connection) {
    const auto ask = [&](const QStringList& question) {
      return desktop_.Output("dbus-send",
                             QStringList{"--print-reply", "--dest=" + connection} + question);
    };
    EXPECT_TRUE(ask({"/StatusNotifierItem", "org.freedesktop.DBus.Properties.Get",
                     "string:org.kde.StatusNotifierItem", "string:ToolTip"})
                    .contains("\"Quillbox\""));
    EXPECT_TRUE(ask({"/MenuBar", "com.canonical.dbusmenu.GetLayout", "int32:0", "int32:-1",
                     "array:string:"})
                    .contains("\"Exit\""));
  }
};

TEST_F(TrayTest, IconComesBackEachTimeTheTrayWasRestarted) {
  desktop_.StartTray();
  const auto quillbox = StartQuillbox();
  ASSERT_TRUE(IconComes());
  LongestWait longest;
  for (int round = 0; round < Rounds(); ++round) {
    desktop_.KillTray();
    ASSERT_TRUE(IconGoes()) << round;
    desktop_.StartTray();
    ASSERT_TRUE(longest.Of([&] { return IconComes(); })) << round;
  }
  EXPECT_EQ(quillbox->state(), QProcess::Running);
}

TEST_F(TrayTest, IconComesEachTimeTheTrayIsLate) {
  LongestWait longest;
  for (int round = 0; round < Rounds(); ++round) {
    Store(SettingBatch().Write(kRuns, "1"));
    const auto quillbox = StartQuillbox();
    ASSERT_TRUE(ComesAbout(HasBegun)) << round << Settings();
    EXPECT_TRUE(DockedIcons(desktop_.Display()).empty()) << round;
    desktop_.StartTray();
    ASSERT_TRUE(longest.Of([&] { return IconComes(); })) << round;
    desktop_.KillTray();
  }
}

TEST_F(TrayTest, ASecondStartEndsAndLeavesNoTrace) {
  desktop_.StartTray();
  const auto quillbox = StartQuillbox();
  ASSERT_TRUE(IconComes());
  ASSERT_TRUE(ComesAbout(HasBegun));
  std::ofstream(Path("Content.dat")) << "of the first one";
  const std::string settings = Settings();

  const auto second = StartQuillbox();
  ASSERT_TRUE(second->waitForFinished());
  EXPECT_EQ(second->exitCode(), 0);
  EXPECT_EQ(Settings(), settings);
  EXPECT_TRUE(fs::exists(Path("Content.dat")));
  EXPECT_EQ(DockedIcons(desktop_.Display()).size(), 1U);
  EXPECT_EQ(quillbox->state(), QProcess::Running);
}

TEST_F(TrayTest, StatusNotifierHostGetsIconTipAndMenuHoweverLateItComes) {
  PlayedWatcher watcher(desktop_.BusAddress());
  const auto items = [&] { return watcher.Calls("RegisterStatusNotifierItem"); };
  const auto quillbox = StartQuillbox();
  ASSERT_TRUE(ComesAbout(HasBegun));
  for (int round = 0; round < Rounds(); ++round) {
    const std::size_t before = items().size();
    const std::size_t asked = watcher.Calls("Get").size();
    watcher.HasHost = false;
    watcher.Appear();
    ASSERT_TRUE(ComesAbout([&] { return watcher.Calls("Get").size() > asked; })) << round;
    EXPECT_EQ(items().size(), before) << "there is no host yet";
    watcher.HasHost = true;
    watcher.Signal("StatusNotifierHostRegistered");
    ASSERT_TRUE(ComesAbout([&] { return items().size() > before; })) << round;
    ExpectTipAndMenu(items().back().service());
    watcher.Vanish();
  }
  EXPECT_EQ(quillbox->state(), QProcess::Running);
}

TEST_F(TrayTest, ExitInTheMenuEndsTheProcessAndItsAgentsInTheMiddleOfARefresh) {
  WriteScript("dl", "echo $$ > " + Path("agent.new") + "; mv " + Path("agent.new") + " " +
                        Path("agent") + "\nexec sleep 600");
  SettingBatch settings;
  SaveAccountList(settings, {{"one"}, {"a@example.test"}, {"secret"}});
  settings.Write(kRefreshTooltip, kTrue).Write(kDataToDownload, kDownloadContent);
  Store(settings);
  std::ofstream(Path("Content.dat")) << "of a run that died";

  desktop_.StartTray();
  const auto quillbox = StartQuillbox();
  ASSERT_TRUE(IconComes());
  ASSERT_TRUE(ComesAbout([&] { return fs::exists(Path("agent")); }));
  EXPECT_FALSE(fs::exists(Path("Content.dat")));

  ChooseLastMenuItem();
  ASSERT_TRUE(quillbox->waitForFinished());
  EXPECT_EQ(quillbox->exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(quillbox->exitCode(), 0);
  EXPECT_TRUE(DockedIcons(desktop_.Display()).empty());
  pid_t agent = 0;
  ASSERT_TRUE(std::ifstream(Path("agent")) >> agent);
  EXPECT_NE(::kill(agent, 0), 0);
}

}  // namespace
}  // namespace quillbox
