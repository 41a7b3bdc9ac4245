// A first start on a real desktop, with a real pointer and keyboard.
#include <gtest/gtest.h>

#include <QImage>

#include "desktop/fake_bus_service.h"
#include "desktop/quillbox_on_desktop.h"

namespace quillbox {
namespace {

namespace fs = std::filesystem;

class OptionsByHandTest : public QuillboxOnDesktop {
 protected:
  // A new person, greeted and answering "Yes". The fetch program answers everybody.
  void SetUp() override {
    QuillboxOnDesktop::SetUp();
    fs::remove_all(SettingsFile().parent_path());
    WriteScript("dl", R"(files=${1#*|}
{
  printf 'Date\tPage impressions\tClicks\tPage CTR\tPage eCPM\tEarnings\n'
  date +'%-m/%-d/%Y%t4321%t5%t5.00%%%t2.50%t0.25'
  printf 'Totals\t4321\t5\t5.00%%\t2.00\t0.25\nAverages\t4321\t5\t5.00%%\t2.00\t0.25\n'
} > "${files%|*}"
printf 0 > "${files#*|}")");
    desktop_.StartTray();
    quillbox_ = StartQuillbox();
    ASSERT_TRUE(WindowComes("Quillbox"));
    EXPECT_TRUE(HasIcon("Quillbox"));
    Keys("Return");
    ASSERT_TRUE(WindowComes("Quillbox Options"));
    EXPECT_TRUE(HasIcon("Quillbox Options"));
  }

  bool HasIcon(const QString& title) {
    return desktop_.Output("xprop", {"-id", WindowOf(title), "_NET_WM_ICON"}).contains("Icon (");
  }

  QPoint MiddleOf(const QString& title) {
    const QStringList figures =
        desktop_
            .Output("sh", {"-c", "xwininfo -id " + WindowOf(title) +
                                     " | awk '/Absolute|Width|Height/ { print $NF }'"})
            .split('\n');
    const auto figure = [&](int index) { return figures.value(index).toInt(); };
    return {figure(0) + figure(2) / 2, figure(1) + figure(3) / 2};
  }
};

TEST_F(OptionsByHandTest, FromTheGreetingToTheFigures) {
  Mouse("mousemove --window " + WindowOf("Quillbox Options") + " 130 35 click 1");
  ASSERT_TRUE(IsStored("LastOption=AdSense")) << Settings();  // the second tab
  Keys("space");                                              // it leads to "Add"
  ASSERT_TRUE(WindowComes("Add AdSense Account"));
  Type("Garden pages\tgarden@example.test\trose mary");
  Keys("Return");
  ASSERT_TRUE(WindowGoes("Add AdSense Account"));
  EXPECT_EQ(Settings().find("Accounts="), std::string::npos) << "before OK";
  Keys("ctrl+Tab");
  ASSERT_TRUE(IsStored("LastOption=AutoUpdate"));
  // Ticks the box, and opens and closes the list.
  Mouse("key alt+e sleep 0.5 key Tab alt+Down sleep 0.5 key Escape");
  EXPECT_TRUE(GetsKeys("Quillbox Options"));
  Keys("Return");  // OK
  EXPECT_TRUE(IsStored("Enable=True")) << Settings();
  EXPECT_TRUE(IsStored("Accounts=Garden pages"));

  OpenMenu();
  Mouse("key Down Down Return");  // Refresh Now
  EXPECT_TRUE(IsStored("4321")) << Settings();
}

TEST_F(OptionsByHandTest, AnIconIsChosenInTheMiddleOfTheScreenAndOfferedAgain) {
  const QString icon = QString::fromStdString(Path("an icon.png"));
  ASSERT_TRUE(QImage(32, 32, QImage::Format_RGB32).save(icon));
  Keys("ctrl+Tab ctrl+Tab ctrl+Tab");
  ASSERT_TRUE(IsStored("LastOption=TrayIcon"));

  Keys("alt+s");
  ASSERT_TRUE(WindowComes("Select Icon"));
  constexpr int kFrame = 40;  // of the window manager
  // The window manager moves it there while it puts its frame around it.
  QPoint middle;
  EXPECT_TRUE(ComesAbout([&] {
    middle = MiddleOf("Select Icon");
    return (middle - QPoint(400, 300)).manhattanLength() <= kFrame;
  })) << middle.x()
      << ',' << middle.y();
  Type(icon);
  Keys("Return");
  ASSERT_TRUE(WindowGoes("Select Icon"));
  Keys("alt+r alt+s");
  ASSERT_TRUE(WindowComes("Select Icon"));
  Keys("Return");
  ASSERT_TRUE(WindowGoes("Select Icon"));
  Keys("Return");
  EXPECT_TRUE(IsStored("Icon=" + icon.toStdString())) << Settings();
}

}  // namespace
}  // namespace quillbox
