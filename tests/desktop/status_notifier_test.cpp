// The real program at StatusNotifier hosts: one that the test plays, and the panel of Xfce.
#include <gmock/gmock.h>

#include <QDBusVariant>
#include <QThread>
#include <fstream>

#include "desktop/docked_icons.h"
#include "desktop/fake_bus_service.h"
#include "desktop/quillbox_on_desktop.h"
#include "support/rounds.h"

namespace quillbox {
namespace {

using testing::MatchesRegex;

// The service at which icons of this kind are registered.
class PlayedWatcher : public FakeBusService {
 public:
  explicit PlayedWatcher(const QString& busAddress)
      : FakeBusService(
            busAddress, "org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher",
            [this](const QDBusMessage& call) {
              if (call.member() != "Get") return QVariantList();
              const bool answer = HasHost && NoesBefore <= 0;
              if (HasHost && NoesBefore > 0) --NoesBefore;
              return QVariantList{QVariant::fromValue(QDBusVariant(answer))};
            },
            "<interface name='org.kde.StatusNotifierWatcher'>"
            "<property name='IsStatusNotifierHostRegistered' type='b' access='read'/>"
            "<method name='RegisterStatusNotifierItem'><arg type='s' direction='in'/></method>"
            "</interface>") {}

  bool HasHost = false;  // that shows the icons
  int NoesBefore = 0;    // so often it says that it has none, before it says that it has
};

// A host that can only activate.
class PlayedHostTest : public QuillboxOnDesktop {
 protected:
  // The icons that were offered so far.
  std::vector<QDBusMessage> Icons() const { return watcher_.Calls("RegisterStatusNotifierItem"); }
  void AwaitIcon(std::size_t number) {
    ASSERT_TRUE(ComesAbout([&] { return Icons().size() == number; }));
  }
  void Register() {
    watcher_.HasHost = true;
    watcher_.Appear();
    quillbox_ = StartQuillbox();
    AwaitIcon(1);
  }

  // Of the icon that was offered last.
  QString Ask(const QStringList& question) {
    const QString connection = Icons().back().service();
    return desktop_.Output("dbus-send",
                           QStringList{"--print-reply", "--dest=" + connection} + question);
  }
  void Call(const QString& method) {
    Ask({"/StatusNotifierItem", "org.kde.StatusNotifierItem." + method, "int32:0", "int32:0"});
  }

  PlayedWatcher watcher_{desktop_.BusAddress()};
};

TEST_F(PlayedHostTest, GetsIconTipAndMenuHoweverLateItComes) {
  quillbox_ = StartQuillbox();
  ASSERT_TRUE(ComesAbout(HasBegun));
  for (int round = 0; round < Rounds(); ++round) {
    SCOPED_TRACE(round);
    const std::size_t before = Icons().size();
    const std::size_t asked = watcher_.Calls("Get").size();
    watcher_.HasHost = false;
    watcher_.Appear();
    ASSERT_TRUE(ComesAbout([&] { return watcher_.Calls("Get").size() > asked; }));
    EXPECT_EQ(Icons().size(), before) << "there is no host yet";
    watcher_.HasHost = true;
    watcher_.Signal("StatusNotifierHostRegistered");
    ASSERT_TRUE(ComesAbout([&] { return Icons().size() > before; }));
    EXPECT_TRUE(Ask({"/StatusNotifierItem", "org.freedesktop.DBus.Properties.Get",
                     "string:org.kde.StatusNotifierItem", "string:ToolTip"})
                    .contains("\"Quillbox\""));
    EXPECT_TRUE(Ask({"/MenuBar", "com.canonical.dbusmenu.GetLayout", "int32:0", "int32:-1",
                     "array:string:"})
                    .contains("\"Exit\""));
    watcher_.Vanish();
  }
  EXPECT_EQ(quillbox_->state(), QProcess::Running);
}

TEST_F(PlayedHostTest, ItsActivationsAreClicksAndItGetsOurMenu) {
  Register();
  EXPECT_THAT(OpenedBy([&] { Call("Activate"); }), MatchesRegex(kVisit));
  const auto twice = [&] {
    Call("Activate");
    Call("Activate");
  };
  EXPECT_THAT(OpenedBy(twice), MatchesRegex(kOpenAccount));

  Call("ContextMenu");
  ASSERT_TRUE(MenuComes());
  Mouse("key Up Return");
  ASSERT_TRUE(quillbox_->waitForFinished());
  EXPECT_EQ(quillbox_->exitCode(), 0);
}

// The dock is there first, and the host comes while the program looks.
TEST_F(PlayedHostTest, APanelOfBothKindsIsTakenForTheKindThatQtFound) {
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

class XfcePanelTest : public QuillboxOnDesktop {
 protected:
  void SetUp() override {
    QuillboxOnDesktop::SetUp();
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
  bool Within(const std::function<bool()>& wished) {
    return longest_.Of([&] { return ComesAbout(wished); });
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
    return opens && TooltipGoes();
  }

  OwnedProcess panel_;
  LongestWait longest_;
};

TEST_F(XfcePanelTest, IconComesBackEachTimeAndItsButtonsWork) {
  quillbox_ = StartQuillbox();
  ASSERT_TRUE(ComesAbout(HasBegun));
  for (int round = 0; round < Rounds(); ++round) {
    StartPanel();
    ASSERT_TRUE(Within([&] { return IconIsRegistered(); })) << round;
    folder_.Put("opened", "");
    Mouse("mousemove 400 585");
    ASSERT_TRUE(After("click 1", [&] { return !folder_.Content("opened").empty(); })) << round;
    EXPECT_THAT(folder_.Content("opened"), testing::StartsWith("https://quillbox.example.test\n"));
    ASSERT_TRUE(MiddleButtonOpensTheWindow()) << round;
    ASSERT_NO_FATAL_FAILURE(KillPanel()) << round;
  }
  EXPECT_EQ(quillbox_->state(), QProcess::Running);
}

// The panel is a dock too, at its start nothing else, and which of the two Qt finds is settled once
// for each process: the icon must be in one of them, and the window open from there.
TEST_F(XfcePanelTest, ProgramAndPanelFindEachOtherHoweverCloselyTheyStart) {
  for (int round = 0; round < Rounds(); ++round) {
    quillbox_ = StartQuillbox();
    QThread::msleep(static_cast<unsigned long>(round % 10 * 30));
    StartPanel();
    const auto isShown = [&] { return IconIsRegistered() || DockedIcons(desktop_).size() == 1; };
    ASSERT_TRUE(Within(isShown)) << round;
    Mouse("mousemove 400 585");
    ASSERT_TRUE(MiddleButtonOpensTheWindow()) << round;
    ASSERT_NO_FATAL_FAILURE(KillPanel()) << round;
    quillbox_.reset();
  }
}

}  // namespace
}  // namespace quillbox
