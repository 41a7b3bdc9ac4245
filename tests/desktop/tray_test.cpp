// The real program on a real tray.
#include <gmock/gmock.h>
#include <signal.h>

#include <QDBusVariant>
#include <QTemporaryDir>
#include <filesystem>
#include <fstream>

#include "config/account_list.h"
#include "config/settings_store.h"
#include "desktop/docked_icons.h"
#include "desktop/fake_bus_service.h"
#include "desktop/private_desktop.h"
#include "desktop/rounds.h"
#include "desktop/settings_per_user_store.h"
#include "system/system_files.h"

namespace quillbox {
namespace {

namespace fs = std::filesystem;

const QString kWatcher = "org.kde.StatusNotifierWatcher";
const QString kWatcherDescription =
    "<interface name='org.kde.StatusNotifierWatcher'>"
    "<property name='IsStatusNotifierHostRegistered' type='b' access='read'/>"
    "<method name='RegisterStatusNotifierItem'><arg type='s' direction='in'/></method>"
    "</interface>";

class TrayTest : public testing::Test {
 protected:
  void SetUp() override {
    // A copy, so that the fetch program beside it is the test's own.
    fs::copy_file(QUILLBOX_PROGRAM, Path("quillbox"));
    fs::remove_all(SettingsFile().parent_path());
    SettingBatch settings;
    settings.Write(kRuns, "1").Write(kCheckForNewVersion, kFalse).Write(kCheckPrompted, kTrue);
    Store(settings);
  }

  void Store(const SettingBatch& settings) { SettingsPerUserStore().Apply(settings.Changes()); }

  static fs::path SettingsFile() {
    return fs::path(std::getenv("XDG_CONFIG_HOME")) / "Quillbox" / "Quillbox.conf";
  }
  static std::string Settings() { return SystemFiles().Read(SettingsFile()).value_or(""); }

  std::string Path(const char* name) const { return folder_.filePath(name).toStdString(); }

  OwnedProcess StartQuillbox() { return desktop_.Start(folder_.filePath("quillbox")); }

  bool IconComes() {
    return ComesAbout([&] { return DockedIcons(desktop_.Display()).size() == 1; });
  }
  bool IconGoes() {
    return ComesAbout([&] { return DockedIcons(desktop_.Display()).empty(); });
  }

  void ChooseLastMenuItem() {
    const QPoint icon = DockedIcons(desktop_.Display()).at(0);
    desktop_.Output("xdotool", {"mousemove", QString::number(icon.x()), QString::number(icon.y()),
                                "click", "3"});
    ASSERT_TRUE(ComesAbout([&] { return MenuIsOpen(desktop_.Display()); }));
    desktop_.Output("xdotool", {"key", "Up", "Return"});
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

  const QTemporaryDir folder_;
  PrivateDesktop desktop_;
};

TEST_F(TrayTest, IconComesBackEachTimeTheTrayWasRestarted) {
  desktop_.StartTray();
  const auto quillbox = StartQuillbox();
  ASSERT_TRUE(IconComes());
  for (int round = 0; round < Rounds(); ++round) {
    desktop_.KillTray();
    ASSERT_TRUE(IconGoes()) << round;
    desktop_.StartTray();
    ASSERT_TRUE(IconComes()) << round;
  }
  EXPECT_EQ(quillbox->state(), QProcess::Running);
}

TEST_F(TrayTest, IconComesWhenTheTrayIsLate) {
  const auto quillbox = StartQuillbox();
  const std::string before = Settings();
  ASSERT_TRUE(ComesAbout([&] { return Settings().find("Runs=2") != std::string::npos; })) << before;
  EXPECT_TRUE(DockedIcons(desktop_.Display()).empty());
  desktop_.StartTray();
  EXPECT_TRUE(IconComes());
}

TEST_F(TrayTest, ASecondStartEndsAndLeavesNoTrace) {
  desktop_.StartTray();
  const auto quillbox = StartQuillbox();
  ASSERT_TRUE(IconComes());
  ASSERT_TRUE(ComesAbout([] { return Settings().find("Runs=2") != std::string::npos; }));
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
  bool hasHost = false;
  FakeBusService watcher(
      desktop_.BusAddress(), kWatcher, "/StatusNotifierWatcher",
      [&](const QDBusMessage& call) {
        if (call.member() != "Get") return QVariantList();
        return QVariantList{QVariant::fromValue(QDBusVariant(hasHost))};
      },
      kWatcherDescription);
  const auto items = [&] { return watcher.Calls("RegisterStatusNotifierItem"); };
  const auto quillbox = StartQuillbox();
  ASSERT_TRUE(ComesAbout([] { return Settings().find("Runs=2") != std::string::npos; }));
  for (int round = 0; round < Rounds(); ++round) {
    const std::size_t before = items().size();
    const std::size_t asked = watcher.Calls("Get").size();
    hasHost = false;
    watcher.Appear();
    ASSERT_TRUE(ComesAbout([&] { return watcher.Calls("Get").size() > asked; })) << round;
    EXPECT_EQ(items().size(), before) << "there is no host yet";
    hasHost = true;
    watcher.Signal("StatusNotifierHostRegistered");
    ASSERT_TRUE(ComesAbout([&] { return items().size() > before; })) << round;
    ExpectTipAndMenu(items().back().service());
    watcher.Vanish();
  }
  EXPECT_EQ(quillbox->state(), QProcess::Running);
}

TEST_F(TrayTest, ExitInTheMenuEndsTheProcessAndItsAgentsInTheMiddleOfARefresh) {
  std::ofstream(Path("dl")) << "#!/bin/sh\necho $$ > " << Path("agent.new") << "; mv "
                            << Path("agent.new") << " " << Path("agent") << "\nexec sleep 600\n";
  fs::permissions(Path("dl"), fs::perms::owner_all);
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
