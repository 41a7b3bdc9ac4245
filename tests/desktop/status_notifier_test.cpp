// The real program at StatusNotifier hosts: one that the test plays, and the panels of Xfce and
// LXQt.
#include <gmock/gmock.h>

#include <QDBusVariant>
#include <QThread>
#include <fstream>

#include "desktop/docked_icons.h"
#include "desktop/fake_bus_service.h"
#include "desktop/quillbox_on_desktop.h"
#include "support/rounds.h"
#include "system/instance_gate.h"

namespace quillbox {
namespace {

using testing::MatchesRegex;

using Mood = FakeBusService::Mood;

// The service at which icons of this kind are registered.
class PlayedWatcher : public FakeBusService {
 public:
  explicit PlayedWatcher(const QString& busAddress)
      : FakeBusService(busAddress, "org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher",
                       [this](const QDBusMessage& call) {
                         if (call.member() != "Get") return QVariantList();
                         return QVariantList{QVariant::fromValue(QDBusVariant(HasHost))};
                       }) {}

  QVariant HasHost = false;  // that shows the icons
};

// A host that can only activate.
class PlayedHostTest : public QuillboxOnDesktop {
 protected:
  // The icons that were offered so far, and the times at which a host was asked for.
  std::vector<QDBusMessage> Icons() const { return watcher_.Calls("RegisterStatusNotifierItem"); }
  void AwaitIcon(std::size_t number) {
    ASSERT_TRUE(ComesAbout([&] { return Icons().size() == number; }));
  }
  void AwaitQuestionAfter(std::size_t asked) {
    ASSERT_TRUE(ComesAbout([&] { return watcher_.Calls("Get").size() > asked; }));
  }
  void Register() {
    watcher_.HasHost = true;
    watcher_.Appear();
    quillbox_ = StartQuillbox();
    AwaitIcon(1);
  }
  bool IsDocked() { return DockedIcons(desktop_).size() == 1; }

  // The limit is below that of any question to a silent service.
  static bool ASecondStartIsHeard() {
    return InstanceGate(RuntimeFolder(InstanceGate::kLongestFolder)).Knock(std::chrono::seconds(2));
  }

  // Of the icon that was offered last.
  QString Ask(const QStringList& question) {
    const QString connection = Icons().back().service();
    return desktop_.Output("dbus-send",
                           QStringList{"--print-reply", "--dest=" + connection} + question);
  }
  QString ErrorOf(const QString& method) {
    const QString call = "dbus-send --print-reply --dest=%1 /StatusNotifierItem %2 2>&1";
    return desktop_.Output(
        "sh", {"-c", call.arg(Icons().back().service(), "org.kde.StatusNotifierItem." + method)});
  }
  void Call(const QString& method) {
    Ask({"/StatusNotifierItem", "org.kde.StatusNotifierItem." + method, "int32:0", "int32:0"});
  }

  PlayedWatcher watcher_{desktop_.BusAddress()};
  QVariant notificationsAnswer_;
  FakeBusService notifications_{
      desktop_.BusAddress(), "org.freedesktop.Notifications", "/org/freedesktop/Notifications",
      [this](const QDBusMessage&) { return QVariantList{notificationsAnswer_}; }};
};

TEST_F(PlayedHostTest, GetsIconTipAndMenuHoweverLateItComes) {
  quillbox_ = StartQuillbox();
  ASSERT_TRUE(ComesAbout(HasBegun));
  for (int round = 0; round < Rounds(); ++round) {
    SCOPED_TRACE(round);
    const std::size_t before = Icons().size();
    watcher_.HasHost = false;
    watcher_.Appear();
    AwaitIcon(before + 1);
    watcher_.HasHost = true;
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

// Whatever the tray's service and that of notifications do, the program goes on, and shows its icon
// in the tray that is left and its balloon in a window of its own.
TEST_F(PlayedHostTest, NoServiceOfTheBusHoldsTheProgramUp) {
  static const struct Case {
    const char* name;
    Mood mood;
    QVariant answer;
    bool ownBalloon;
  } kCases[] = {
      {"no", Mood::kAnswers, false, false},    {"junk", Mood::kAnswers, "true", false},
      {"more junk", Mood::kAnswers, 1, false}, {"error", Mood::kRefuses, true, true},
      {"silence", Mood::kSilent, true, true},  {"death", Mood::kDies, true, true},
  };
  WriteScript("dl", "printf 1 > \"${1##*|}\"");  // no connection, which a balloon tells
  Store(SettingBatch().Write(kRefreshTooltip, kTrue).Write(kDataToDownload, kDownloadContent));
  desktop_.StartTray();
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.name);
    watcher_.HasHost = notificationsAnswer_ = c.answer;
    for (FakeBusService* const service :
         {static_cast<FakeBusService*>(&watcher_), &notifications_}) {
      service->Be(c.mood);
      service->Appear();
    }
    const std::size_t asked = watcher_.Calls("Get").size();
    const std::size_t notified = notifications_.Calls("GetCapabilities").size();
    quillbox_ = StartQuillbox();
    AwaitQuestionAfter(asked);
    EXPECT_TRUE(ASecondStartIsHeard());
    EXPECT_TRUE(IconComes());
    EXPECT_TRUE(
        ComesAbout([&] { return notifications_.Calls("GetCapabilities").size() > notified; }));
    EXPECT_TRUE(ASecondStartIsHeard());
    if (c.ownBalloon) {
      EXPECT_TRUE(ComesAbout([&] { return !WindowOf("Balloon").isEmpty(); }));
    }
    watcher_.Vanish();
    watcher_.Appear();
    EXPECT_TRUE(ASecondStartIsHeard());
    EXPECT_TRUE(IconComes());
    watcher_.Vanish();
    quillbox_.reset();
  }
}

TEST_F(PlayedHostTest, GetsTheIconFromTheDockWhenItAnswersAtLast) {
  desktop_.StartTray();
  watcher_.Be(Mood::kSilent);
  Register();
  ASSERT_TRUE(IconComes());
  watcher_.AnswerAtLast();
  EXPECT_TRUE(IconGoes());
  watcher_.Vanish();
  EXPECT_TRUE(IconComes());
  for (int restart = 0; restart < 100; ++restart) {
    watcher_.Appear();
    watcher_.Vanish();
  }
  watcher_.Be(Mood::kSilent);
  watcher_.Appear();
  EXPECT_TRUE(ASecondStartIsHeard());
  watcher_.AnswerAtLast();
  EXPECT_TRUE(IconGoes());
  EXPECT_EQ(quillbox_->state(), QProcess::Running);
}

// It says that it has none, and doesn't tell when one comes.
TEST_F(PlayedHostTest, IsAskedForAgainAtASecondStartAndWhenSomebodyReadsTheIcon) {
  watcher_.Appear();
  quillbox_ = StartQuillbox();
  AwaitIcon(1);
  AwaitQuestionAfter(0);
  const std::size_t asked = watcher_.Calls("Get").size();
  EXPECT_TRUE(ASecondStartIsHeard());
  AwaitQuestionAfter(asked);
  desktop_.StartTray();
  ASSERT_TRUE(IconComes());
  watcher_.HasHost = true;
  Ask({"/StatusNotifierItem", "org.freedesktop.DBus.Properties.GetAll",
       "string:org.kde.StatusNotifierItem"});
  EXPECT_TRUE(IconGoes());
}

TEST_F(PlayedHostTest, ItsActivationsAreClicksAndItGetsOurMenu) {
  Register();
  EXPECT_TRUE(ErrorOf("ProvideXdgActivationToken").contains("UnknownMethod"));
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

TEST_F(PlayedHostTest, MiddleButtonOpensTheWindowWhereThePointersPlaceIsKnown) {
  for (const char* const session : {"wayland", "x11"}) {
    qputenv("XDG_SESSION_TYPE", session);
    const std::size_t before = Icons().size();
    watcher_.HasHost = true;
    watcher_.Appear();
    quillbox_ = StartQuillbox();
    AwaitIcon(before + 1);
    Call("SecondaryActivate");
    if (session == std::string("x11")) {
      EXPECT_TRUE(TooltipComes());
    } else {
      Settle();
      EXPECT_FALSE(TooltipIsShown());
    }
    quillbox_.reset();
  }
  qunsetenv("XDG_SESSION_TYPE");
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

// The panel is a dock too, and at its start nothing else: the icon is the same thing each time.
TEST_F(XfcePanelTest, ProgramAndPanelFindEachOtherHoweverCloselyTheyStart) {
  for (int round = 0; round < Rounds(); ++round) {
    quillbox_ = StartQuillbox();
    QThread::msleep(static_cast<unsigned long>(round % 10 * 30));
    StartPanel();
    ASSERT_TRUE(Within([&] { return IconIsRegistered() && DockedIcons(desktop_).empty(); }))
        << round;
    Mouse("mousemove 400 585");
    ASSERT_TRUE(MiddleButtonOpensTheWindow()) << round;
    ASSERT_NO_FATAL_FAILURE(KillPanel()) << round;
    quillbox_.reset();
  }
}

constexpr char kLxqtPanelSettings[] =
    "[General]\npanels=panel1\n\n[panel1]\nplugins=statusnotifier\nposition=Bottom\n"
    "panelSize=32\nwidth=100\nwidth-percent=true\n\n[statusnotifier]\ntype=statusnotifier\n";

// It shows the program's menu itself, and closes it when it hears that its layout has changed.
class LxqtPanelTest : public QuillboxOnDesktop {
 protected:
  void SetUp() override {
    QuillboxOnDesktop::SetUp();
    const auto folder = SettingsFile().parent_path().parent_path() / "lxqt";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / "panel.conf") << kLxqtPanelSettings;
    panel_ = desktop_.Start("lxqt-panel");
    quillbox_ = StartQuillbox();
  }

  qsizetype Windows() {
    return desktop_.Output("xdotool", {"search", "--onlyvisible", "--class", "^lxqt-panel$"})
        .count('\n');
  }

  // The panel draws the icon when it has the time for it, and a press then may be in vain.
  bool MenuOpens() {
    Mouse("mousemove 20 585");
    for (int tries = 0; tries < 20; ++tries) {
      const qsizetype before = Windows();
      Mouse("click 3");
      Settle();
      if (before > 0 && Windows() > before) return true;
    }
    return false;
  }

  OwnedProcess panel_;
};

TEST_F(LxqtPanelTest, TheMenuOpensStaysAndEachKindOfItemWorks) {
  static const struct Case {
    const char* keys;
    const char* opened;
  } kCases[] = {
      {"key Up Up Up Return", kVisit},                    // at the end, above Support and Exit
      {"key Down Down Down Right Return", kOpenAccount},  // in a submenu
  };
  for (const Case& c : kCases) {
    ASSERT_TRUE(MenuOpens()) << c.keys;
    const qsizetype windows = Windows();
    Settle();
    EXPECT_EQ(Windows(), windows) << "it has closed";
    EXPECT_THAT(OpenedBy([&] { Mouse(c.keys); }), MatchesRegex(c.opened)) << c.keys;
  }
  ASSERT_TRUE(MenuOpens());
  Mouse("key Up Return");
  ASSERT_TRUE(quillbox_->waitForFinished());
  EXPECT_EQ(quillbox_->exitCode(), 0);
}

}  // namespace
}  // namespace quillbox
