// The tooltip window on real panels: place, look, and what it leaves to other windows.
#include <gtest/gtest.h>

#include <QImage>

#include "desktop/fake_bus_service.h"
#include "desktop/private_desktop.h"
#include "desktop/shown_window.h"
#include "qt_tray/tooltip_window.h"
#include "qt_tray/x11_tray.h"
#include "system/system_files.h"
#include "system/temporary_folder.h"
#include "tooltip/tooltip_picture.h"

namespace quillbox {
namespace {

constexpr QColor kBack(250, 240, 200);
constexpr QColor kValueColor(200, 0, 0);
constexpr QColor kDescriptionColor(0, 0, 200);

bool Like(QRgb pixel, const QColor& color) {
  constexpr int kDifference = 60;  // edges of letters are mixed
  return std::abs(qRed(pixel) - color.red()) < kDifference &&
         std::abs(qGreen(pixel) - color.green()) < kDifference &&
         std::abs(qBlue(pixel) - color.blue()) < kDifference;
}

QRect AreaOf(const QColor& color, const QImage& picture) {
  QRect area;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (Like(picture.pixel(x, y), color)) area |= QRect(x, y, 1, 1);
    }
  }
  return area;
}

// Bands of lines with the colour, with lines without it between them.
int RowsOf(const QColor& color, const QImage& picture) {
  int rows = 0;
  bool inRow = false;
  for (int y = 0; y < picture.height(); ++y) {
    const bool has = !AreaOf(color, picture.copy(0, y, picture.width(), 1)).isEmpty();
    if (has && !inRow) ++rows;
    inRow = has;
  }
  return rows;
}

// Made before Qt looks for its display.
PrivateDesktop& Desktop() {
  static PrivateDesktop desktop;
  return desktop;
}

// How many of the screen's dots one of Qt's pixels is wide.
int Scale() {
  return qRound(qApp->devicePixelRatio());
}

class TooltipWindowTest : public testing::Test {
 protected:
  TooltipWindowTest() {
    const int back = kBack.red() | kBack.green() << 8 | kBack.blue() << 16;
    folder_.Put("skin.ini", "[Skin]\nBackColor=" + std::to_string(back) +
                                "\nFontFace=DejaVu Sans\nFontSize=14\nFontColor=200,0,0\n"
                                "DescFontColor=0,0,200\n");
  }
  ~TooltipWindowTest() override { Desktop().KillTray(); }

  // Its middle stands in the middle of the edge, and it says that it is a panel.
  static void StartShortPanel(const char* edge) {
    Desktop().StartTray({"--edge", edge, "--align", "center", "--heighttype", "pixel", "--height",
                         "30", "--widthtype", "percent", "--width", "20", "--SetDockType", "true",
                         "--SetPartialStrut", "true"});
  }

  // In dots.
  static void PointAt(const QPoint& place) {
    Desktop().Output("xdotool",
                     {"mousemove", QString::number(place.x()), QString::number(place.y())});
  }

  // Shows the window as soon as the panel is there that has this place, over the whole edge, and
  // gives the window's own.
  QRect ShowBeside(const QRect& panel) {
    PixelRect found;
    EXPECT_TRUE(ComesAbout([&] {
      Desktop().NudgeWindowManager();
      found = window_.Surroundings().Taskbar;
      return QRect(found.Left, found.Top, found.Right - found.Left, found.Bottom - found.Top) ==
             panel;
    })) << found.Left
        << ' ' << found.Top << ' ' << found.Right << ' ' << found.Bottom;
    window_.Show(BuildTooltipPicture("Today: 12.34\r\nno row of it\r\nPages: 7", files_,
                                     folder_.File("skin.ini"), folder_.File("Skin.gif"), window_));
    return ShownWindow("TooltipWin")->geometry();
  }
  QRect Show() { return ShowBeside({}); }

  QImage Screen() const {
    Desktop().Output("import",
                     {"-window", "root", QString::fromStdString(folder_.File("screen.png"))});
    return QImage(QString::fromStdString(folder_.File("screen.png")));
  }
  // In dots.
  QImage PictureNow(const QRect& window) const {
    return Screen().copy({Scale() * window.topLeft(), Scale() * window.size()});
  }
  // Once it is painted.
  QImage Picture(const QRect& window) const {
    QImage picture;
    EXPECT_TRUE(ComesAbout([&] {
      picture = PictureNow(window);
      return !AreaOf(kValueColor, picture).isEmpty();
    }));
    return picture;
  }

  static QString Focus() { return Desktop().Output("xdotool", {"getwindowfocus"}).trimmed(); }

  // A window of another program that takes the focus.
  static OwnedProcess StartOtherWindow(const QString& name, const QString& geometry) {
    auto other = Desktop().Start("xmessage", {"-name", name, "-geometry", geometry, "Another"});
    EXPECT_TRUE(ComesAbout([&] {
      Desktop().NudgeWindowManager();
      const QString id = Desktop().Output("xdotool", {"search", "--onlyvisible", "--name", name});
      Desktop().Output("xdotool", {"windowactivate", id.section('\n', 0, 0)});
      return !id.isEmpty() && Focus() == id.section('\n', 0, 0);
    })) << Focus().toStdString();
    return other;
  }

  const TemporaryFolder folder_;
  SystemFiles files_;
  QtTooltipWindow window_;
};

TEST_F(TooltipWindowTest, StandsBesideThePanelOnEachEdge) {
  static const struct Case {
    const char* edge;
    QPoint pointer;
    QRect panel;
    QPoint (QRect::*corner)() const;  // of the window
    QPoint place;                     // of that corner
  } kCases[] = {
      {"bottom", {400, 590}, {0, 570, 800, 30}, &QRect::bottomRight, {789, 569}},
      {"top", {400, 10}, {0, 0, 800, 30}, &QRect::topRight, {789, 30}},
      {"left", {10, 300}, {0, 0, 30, 600}, &QRect::bottomLeft, {30, 589}},
      {"right", {790, 300}, {770, 0, 30, 600}, &QRect::bottomRight, {769, 599}},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.edge);
    StartShortPanel(c.edge);
    PointAt(c.pointer);
    const QRect window = ShowBeside(c.panel);
    EXPECT_EQ((window.*c.corner)(), c.place);
    EXPECT_FALSE(AreaOf(kDescriptionColor, Picture(window)).isEmpty());
  }
}

TEST_F(TooltipWindowTest, FindsAPanelThatDoesNotSayWhatItIsByTheIconInIt) {
  const X11Tray tray([] {});
  ASSERT_TRUE(ComesAbout([&] { return tray.Owner() == 0; })) << "an earlier one";
  Desktop().StartTray();
  ASSERT_TRUE(ComesAbout([&] { return tray.Owner() != 0; }));
  const X11Dock icon(tray.Owner(), [](TrayMouse) {});
  PointAt({400, 585});
  ShowBeside({0, 574, 800, 26});
}

// Run at a scale of 2, too.
TEST_F(TooltipWindowTest, ShowsRowsInTheirColoursWithinEvenMarginsAndAFrame) {
  StartShortPanel("bottom");
  PointAt({400, 590});
  const QRect window = ShowBeside({0, 570 / Scale(), 800 / Scale(), 30 / Scale()});
  EXPECT_EQ(window.bottomRight(), QPoint(800 / Scale() - 11, 570 / Scale() - 1));
  const QImage picture = Picture(window);
  const QRect descriptions = AreaOf(kDescriptionColor, picture);
  const QRect values = AreaOf(kValueColor, picture);

  EXPECT_EQ(RowsOf(kDescriptionColor, picture), 2);
  EXPECT_EQ(RowsOf(kValueColor, picture), 2);
  EXPECT_NEAR(descriptions.left(), 12 * Scale(), 2 * Scale());  // 180 twips
  const int right = picture.width() - 1, bottom = picture.height() - 1;
  EXPECT_NEAR(right - values.right(), 12 * Scale(), 3 * Scale());
  EXPECT_GT(values.right(), descriptions.right());
  // 150 twips, and what a letter leaves free above itself.
  EXPECT_GE(descriptions.top(), 10 * Scale());
  EXPECT_GE(bottom - descriptions.bottom(), 9 * Scale());

  const QRgb frame = picture.pixel(0, 0);
  EXPECT_FALSE(Like(frame, kBack));
  const int across = picture.width() / 2, down = picture.height() / 2, line = Scale() - 1;
  for (const QPoint& place : {QPoint(across, line), QPoint(across, bottom - line),
                              QPoint(line, down), QPoint(right - line, down)}) {
    EXPECT_EQ(picture.pixel(place), frame);
  }
  EXPECT_EQ(picture.pixel(line + 1, line + 1), kBack.rgb());
  EXPECT_EQ(picture.pixel(right - line - 1, bottom - line - 1), kBack.rgb());
}

TEST_F(TooltipWindowTest, PictureTakesThePlaceOfTheColour) {
  Desktop().Output("convert", {"-size", "20x600", "xc:#00c800",
                               QString::fromStdString(folder_.File("Skin.gif"))});
  const QImage picture = Picture(Show());
  EXPECT_EQ(picture.pixel(5, 5), QColor(0, 200, 0).rgb());
  EXPECT_EQ(picture.pixel(19, 5), QColor(0, 200, 0).rgb());
  EXPECT_NE(picture.pixel(20, 5), QColor(0, 200, 0).rgb());  // at its own size
  EXPECT_NE(picture.pixel(20, 5), kBack.rgb());
}

TEST_F(TooltipWindowTest, LiesOverOtherWindowsAndLeavesThemTheFocus) {
  const auto below = StartOtherWindow("below", "400x240+0+350");
  const QString focus = Focus();
  const QRect window = Show();
  const QImage picture = Picture(window);
  EXPECT_TRUE(QRect(0, 350, 400, 240).contains(window));
  EXPECT_EQ(Focus(), focus);
  const auto later = StartOtherWindow("later", "400x240+0+350");
  EXPECT_EQ(PictureNow(window), picture);
  window_.Close();
  EXPECT_TRUE(ComesAbout([&] { return PictureNow(window) != picture; }));
}

TEST_F(TooltipWindowTest, WithoutPanelItStandsInTheLeftBottomCornerOfThePointersScreen) {
  const auto awaitScreens = [](int count) {
    return ComesAbout([=] { return QGuiApplication::screens().size() == count; });
  };
  for (const QString side : {"0", "400"}) {
    Desktop().Output("xrandr", {"--setmonitor", "side" + side, "400/100x600/150+" + side + "+0",
                                side == "0" ? "screen" : "none"});
  }
  ASSERT_TRUE(awaitScreens(2));
  for (const int left : {400, 0}) {
    PointAt({left + 300, 300});
    EXPECT_EQ(Show().bottomLeft(), QPoint(left, 589));
  }
  for (const char* const side : {"side0", "side400"})
    Desktop().Output("xrandr", {"--delmonitor", side});
  EXPECT_TRUE(awaitScreens(1));
}

}  // namespace
}  // namespace quillbox

int main(int argc, char** argv) {
  const quillbox::TemporaryFolder home;
  for (const char* const name : {"HOME", "XDG_RUNTIME_DIR"}) qputenv(name, home.Path().c_str());
  testing::InitGoogleTest(&argc, argv);
  qputenv("DISPLAY", quillbox::Desktop().Display().toUtf8());
  qputenv("DBUS_SESSION_BUS_ADDRESS", quillbox::Desktop().BusAddress().toUtf8());
  qputenv("QT_QPA_PLATFORM", "xcb");
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
