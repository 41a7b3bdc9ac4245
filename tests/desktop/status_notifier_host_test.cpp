// The real program at a real StatusNotifier host, the panel of Xfce.
#include <gtest/gtest.h>

#include <QThread>
#include <fstream>
#include <functional>

#include "config/setting_keys.h"
#include "desktop/docked_icons.h"
#include "desktop/fake_bus_service.h"
#include "desktop/quillbox_on_desktop.h"
#include "desktop/rounds.h"

namespace quillbox {
namespace {

// A panel as small as what it holds, which is one icon.
constexpr char kPanelSettings[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=10;x=0;y=0"/>
      <property name="length" type="uint" value="1"/>
      <property name="size" type="uint" value="30"/>
      <property name="plugin-ids" type="array"><value type="int" value="1"/></property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray"/>
  </property>
</channel>
)";

class StatusNotifierHostTest : public QuillboxOnDesktop {
 protected:
  void SetUp() override {
    QuillboxOnDesktop::SetUp();
    Store(SettingBatch().Write(kTraySingleAction, kActionVisit));
    const auto folder =
        SettingsFile().parent_path().parent_path() / "xfce4" / "xfconf" / "xfce-perchannel-xml";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "xfce4-panel.xml") << kPanelSettings;
  }

  void StartPanel() { panel_ = desktop_.Start("xfce4-panel", {"--disable-wm-check"}); }

  bool IconIsRegistered() {
    const QString watcher = "org.kde.StatusNotifierWatcher";
    return desktop_
        .Output("dbus-send", {"--print-reply", "--dest=" + watcher, "/StatusNotifierWatcher",
                              "org.freedesktop.DBus.Properties.Get", "string:" + watcher,
                              "string:RegisteredStatusNotifierItems"})
        .contains("StatusNotifierItem");
  }
  bool Registers() {
    return longest_.Of([&] { return ComesAbout([&] { return IconIsRegistered(); }); });
  }
  bool IsShown() {
    return longest_.Of([&] {
      return ComesAbout(
          [&] { return IconIsRegistered() || DockedIcons(desktop_.Display()).size() == 1; });
    });
  }
  void KillPanel() {
    panel_.reset();
    ASSERT_TRUE(ComesAbout([&] { return !IconIsRegistered(); }));
  }

  // The panel draws the icon when it has the time for it, and a press then may be in vain: clicks
  // until it is so, a second apart.
  bool After(const char* click, const std::function<bool()>& wished) {
    for (int tries = 0; tries < 10; ++tries) {
      Mouse(click);
      QThread::sleep(1);
      if (wished()) return true;
    }
    return false;
  }

  bool MiddleButtonOpensTheWindow() {
    const bool opens = After("click 2", [&] { return TooltipIsShown(); });
    PointElsewhere();
    return opens && ComesAbout([&] { return !TooltipIsShown(); });
  }

  OwnedProcess panel_;
  LongestWait longest_;
};

TEST_F(StatusNotifierHostTest, IconComesBackEachTimeAndItsButtonsWork) {
  const auto quillbox = StartQuillbox();
  ASSERT_TRUE(ComesAbout(HasBegun));
  for (int round = 0; round < Rounds(); ++round) {
    StartPanel();
    ASSERT_TRUE(Registers()) << round;
    std::filesystem::remove(Path("opened"));
    Mouse("mousemove 400 585");
    ASSERT_TRUE(After("click 1", [&] { return !Opened().empty(); })) << round;
    EXPECT_EQ(Opened().front(), "https://quillbox.example.test") << round;
    ASSERT_TRUE(MiddleButtonOpensTheWindow()) << round;
    ASSERT_NO_FATAL_FAILURE(KillPanel()) << round;
  }
  EXPECT_EQ(quillbox->state(), QProcess::Running);
}

// The panel is a dock too, at its start nothing else, and which of the two Qt finds is settled once
// for each process: the icon must be in one of them, and the window open from there.
TEST_F(StatusNotifierHostTest, ProgramAndPanelFindEachOtherHoweverCloselyTheyStart) {
  for (int round = 0; round < Rounds(); ++round) {
    const auto quillbox = StartQuillbox();
    QThread::msleep(static_cast<unsigned long>(round % 10 * 30));
    StartPanel();
    ASSERT_TRUE(IsShown()) << round;
    Mouse("mousemove 400 585");
    ASSERT_TRUE(MiddleButtonOpensTheWindow()) << round;
    ASSERT_NO_FATAL_FAILURE(KillPanel()) << round;
  }
}

}  // namespace
}  // namespace quillbox
