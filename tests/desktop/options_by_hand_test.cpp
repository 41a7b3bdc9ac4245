// A first start on a real desktop, with a real pointer and keyboard.
#include <gmock/gmock.h>

#include <QImage>
#include <QRect>

#include "desktop/docked_icons.h"
#include "desktop/fake_bus_service.h"
#include "desktop/quillbox_on_desktop.h"

namespace quillbox {
namespace {

namespace fs = std::filesystem;

class OptionsByHandTest : public QuillboxOnDesktop {
 protected:
  // A new person. The fetch program answers everybody, and notes who asked.
  void SetUp() override {
    QuillboxOnDesktop::SetUp();
    fs::remove_all(SettingsFile().parent_path());
    WriteScript("dl", R"(text=$1
printf '%s\n' "${text%%%#%*}" >> )" +
                          Path("asked") + R"(
files=${text#*|}
today=$(date +%-m/%-d/%Y)
{
  printf 'Date\tPage impressions\tClicks\tPage CTR\tPage eCPM\tEarnings\n'
  printf '%s\t4321\t5\t5.00%%\t2.50\t0.25\n' "$today"
  printf 'Totals\t4321\t5\t5.00%%\t2.00\t0.25\nAverages\t4321\t5\t5.00%%\t2.00\t0.25\n'
} > "${files%|*}"
printf 0 > "${files#*|}")");
    desktop_.StartTray();
    quillbox_ = StartQuillbox();
    ASSERT_TRUE(WindowComes("Quillbox"));
  }

  QString WindowOf(const QString& title) {
    return desktop_.Output("xdotool", {"search", "--onlyvisible", "--name", "^" + title + "$"})
        .section('\n', -2, -2);
  }
  bool WindowComes(const QString& title) {
    return ComesAbout([&] {
             desktop_.NudgeWindowManager();
             return !WindowOf(title).isEmpty();
           }) &&
           GetsKeys(title);
  }
  bool WindowGoes(const QString& title) {
    return ComesAbout([&] { return WindowOf(title).isEmpty(); });
  }
  bool GetsKeys(const QString& title) {
    return ComesAbout([&] {
      return desktop_.Output("xdotool", {"getactivewindow", "getwindowname"}).trimmed() == title;
    });
  }

  void Keys(const QString& keys) { Mouse("key " + keys); }
  void Type(const QString& text) { desktop_.Output("xdotool", {"type", text}); }

  QRect PlaceOf(const QString& title) {
    const QStringList lines =
        desktop_.Output("xdotool", {"getwindowgeometry", "--shell", WindowOf(title)}).split('\n');
    const auto measure = [&](const QString& name) {
      return lines.filter(name + "=").value(0).section('=', 1).toInt();
    };
    return {measure("X"), measure("Y"), measure("WIDTH"), measure("HEIGHT")};
  }

  // At so many hundredths of the window's width and height.
  void ClickIn(const QString& title, int across, int down) {
    const QRect place = PlaceOf(title);
    Mouse(QString("mousemove --window %1 %2 %3 click 1")
              .arg(WindowOf(title))
              .arg(place.width() * across / 100)
              .arg(place.height() * down / 100));
  }

  bool IsStored(const std::string& text) {
    return ComesAbout([&] { return Settings().find(text) != std::string::npos; });
  }

  OwnedProcess quillbox_;
};

TEST_F(OptionsByHandTest, FromTheGreetingToTheFigures) {
  Keys("Return");  // Yes
  ASSERT_TRUE(WindowComes("Quillbox Options"));
  ClickIn("Quillbox Options", 21, 7);  // the second tab
  ASSERT_TRUE(IsStored("LastOption=AdSense")) << Settings();
  Keys("alt+a");
  ASSERT_TRUE(WindowComes("Add AdSense Account"));
  Type("Garden pages");
  Keys("Tab");
  Type("garden@example.test");
  Keys("Tab");
  Type("rose mary");
  Keys("Return");
  ASSERT_TRUE(WindowGoes("Add AdSense Account"));
  ASSERT_TRUE(GetsKeys("Quillbox Options"));
  EXPECT_EQ(Settings().find("Accounts="), std::string::npos) << "before OK";
  Keys("ctrl+Tab");
  ASSERT_TRUE(IsStored("LastOption=AutoUpdate"));
  Keys("Return");  // OK
  ASSERT_TRUE(WindowGoes("Quillbox Options"));
  EXPECT_TRUE(IsStored("Accounts=Garden pages"));

  PointAtIcon();
  Mouse("click 3");
  ASSERT_TRUE(MenuComes());
  Mouse("key Down Down Return");  // Refresh Now
  EXPECT_TRUE(IsStored("4321")) << Settings();
}

TEST_F(OptionsByHandTest, EscapeIsCancel) {
  Keys("Return");
  ASSERT_TRUE(WindowComes("Quillbox Options"));
  Keys("ctrl+Tab");
  ASSERT_TRUE(IsStored("LastOption=AdSense"));
  for (const char* const end : {"Escape", "Return"}) {
    Keys("alt+a");
    ASSERT_TRUE(WindowComes("Add AdSense Account"));
    Type("a");
    Keys("Tab");
    Type("b");
    Keys("Tab");
    Type("c");
    Keys(end);
    ASSERT_TRUE(WindowGoes("Add AdSense Account"));
    ASSERT_TRUE(GetsKeys("Quillbox Options"));
  }
  Keys("Escape");
  ASSERT_TRUE(WindowGoes("Quillbox Options"));
  EXPECT_EQ(Settings().find("Accounts="), std::string::npos);
  EXPECT_EQ(quillbox_->state(), QProcess::Running);
}

TEST_F(OptionsByHandTest, AnIconIsChosenInTheMiddleOfTheScreenAndOfferedAgain) {
  const QString icon = folder_.filePath("an icon.png");
  ASSERT_TRUE(QImage(32, 32, QImage::Format_RGB32).save(icon));
  Keys("Return");
  ASSERT_TRUE(WindowComes("Quillbox Options"));
  Keys("ctrl+Tab ctrl+Tab ctrl+Tab");
  ASSERT_TRUE(IsStored("LastOption=TrayIcon"));

  Keys("alt+s");
  ASSERT_TRUE(WindowComes("Select Icon"));
  constexpr int kFrame = 40;  // of the window manager
  EXPECT_LE((PlaceOf("Select Icon").center() - QPoint(400, 300)).manhattanLength(), kFrame);
  Type(icon);
  Keys("Return");
  ASSERT_TRUE(WindowGoes("Select Icon"));
  ASSERT_TRUE(GetsKeys("Quillbox Options"));

  Keys("alt+r alt+s");
  ASSERT_TRUE(WindowComes("Select Icon"));
  Keys("Return");
  ASSERT_TRUE(WindowGoes("Select Icon"));
  ASSERT_TRUE(GetsKeys("Quillbox Options"));
  Keys("Return");
  ASSERT_TRUE(WindowGoes("Quillbox Options"));
  EXPECT_TRUE(IsStored("Icon=" + icon.toStdString())) << Settings();
}

}  // namespace
}  // namespace quillbox
