// The tooltip window on real panels: place, look, and what it leaves to other windows.
#include <gtest/gtest.h>

#include <QImage>
#include <QTemporaryDir>
#include <fstream>
#include <sstream>

#include "desktop/fake_bus_service.h"
#include "desktop/private_desktop.h"

namespace quillbox {
namespace {

constexpr QColor kBack(250, 240, 200);
constexpr QColor kValueColor(200, 0, 0);
constexpr QColor kDescriptionColor(0, 0, 200);
constexpr int kPanel = 30;  // how thick it is

struct Shown {
  std::string Taskbar;  // left top right bottom
  QRect Window;
};

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

class TooltipWindowTest : public testing::Test {
 protected:
  TooltipWindowTest() {
    std::ofstream(folder_.filePath("skin.ini").toStdString())
        << "[Skin]\nBackColor=" << (kBack.red() | kBack.green() << 8 | kBack.blue() << 16)
        << "\nFontFace=DejaVu Sans\nFontSize=14\nFontColor=200,0,0\nDescFontColor=0,0,200\n";
  }

  // Its middle stands in the middle of the edge.
  void StartPanel(const QString& edge, const QStringList& more = {}) {
    panel_ =
        desktop_.Start("trayer", QStringList{"--edge", edge, "--align", "center", "--heighttype",
                                             "pixel", "--height", QString::number(kPanel)} +
                                     more);
  }
  void StartShortPanel(const QString& edge) {
    StartPanel(edge, {"--widthtype", "percent", "--width", "20", "--SetDockType", "true",
                      "--SetPartialStrut", "true"});
  }

  void PointAt(const QPoint& place) {
    desktop_.Output("xdotool",
                    {"mousemove", QString::number(place.x()), QString::number(place.y())});
  }

  void StartProbe(const QStringList& environment = {}) {
    probe_ = desktop_.Start(
        "env", environment + QStringList{QUILLBOX_TOOLTIP_PROBE, folder_.path(), "Today: 12.34",
                                         "no row of it", "Pages: 7"});
  }

  void Tell(const char* order) {
    probe_->write(order);
    probe_->write("\n");
    probe_->waitForBytesWritten();
  }

  QByteArray Answer() {
    while (!probe_->canReadLine()) {
      if (!probe_->waitForReadyRead(10000)) return {};
    }
    return probe_->readLine();
  }

  Shown Show() {
    Tell("show");
    std::istringstream answer(Answer().toStdString());
    int left = 0, top = 0, right = 0, bottom = 0, x = 0, y = 0, width = 0, height = 0;
    double screenWidth = 0, screenHeight = 0;
    answer >> left >> top >> right >> bottom >> screenWidth >> screenHeight >> x >> y >> width >>
        height;
    std::ostringstream taskbar;
    taskbar << left << ' ' << top << ' ' << right << ' ' << bottom;
    return {taskbar.str(), {x, y, width, height}};
  }

  void Close() {
    Tell("close");
    EXPECT_EQ(Answer(), "closed\n");
  }

  // A panel comes up at its own pace.
  Shown ShowBeside(const std::string& taskbar) {
    StartProbe();
    Shown shown;
    ComesAbout([&] {
      shown = Show();
      if (shown.Taskbar == taskbar) return true;
      Close();
      return false;
    });
    return shown;
  }

  QImage Screen() {
    const QString file = folder_.filePath("screen.png");
    desktop_.Output("import", {"-window", "root", file});
    return QImage(file);
  }

  // Once it is painted.
  QImage Picture(const QRect& window) {
    QImage picture;
    ComesAbout([&] {
      picture = Screen().copy(window);
      return !AreaOf(kValueColor, picture).isEmpty();
    });
    return picture;
  }

  // Whether nothing lies over it.
  bool IsOnTop(const QRect& window) {
    const QImage picture = Screen().copy(window);
    int back = 0;
    for (int y = 1; y < picture.height() - 1; ++y) {
      for (int x = 1; x < picture.width() - 1; ++x) back += picture.pixel(x, y) == kBack.rgb();
    }
    return 2 * back > picture.width() * picture.height();
  }

  QString Focus() { return desktop_.Output("xdotool", {"getwindowfocus"}).trimmed(); }

  // A window of another program that takes the focus.
  OwnedProcess StartOtherWindow(const QString& name, const QRect& area) {
    auto other = desktop_.Start(
        "xmessage",
        {"-name", name, "-geometry",
         QString("%1x%2+%3+%4").arg(area.width()).arg(area.height()).arg(area.x()).arg(area.y()),
         "Another window"});
    EXPECT_TRUE(ComesAbout([&] {
      desktop_.NudgeWindowManager();
      const QString id = desktop_.Output("xdotool", {"search", "--onlyvisible", "--name", name});
      if (id.isEmpty()) return false;
      desktop_.Output("xdotool", {"windowactivate", id.section('\n', 0, 0)});
      return Focus() == id.section('\n', 0, 0);
    })) << Focus().toStdString()
        << " instead of "
        << desktop_.Output("xdotool", {"search", "--onlyvisible", "--name", name}).toStdString();
    return other;
  }

  const QTemporaryDir folder_;
  PrivateDesktop desktop_;
  OwnedProcess panel_, probe_;
};

TEST_F(TooltipWindowTest, StandsBesideThePanelOnEachEdge) {
  struct Case {
    const char* Edge;
    QPoint Pointer;
    std::string Taskbar;                    // over the whole edge
    QPoint (*Corner)(const QSize& window);  // where the window is to stand
  };
  const Case kCases[] = {
      {"bottom",
       {400, 590},
       "0 570 800 600",
       [](const QSize& w) { return QPoint(800 - w.width() - 10, 570 - w.height()); }},
      {"top",
       {400, 10},
       "0 0 800 30",
       [](const QSize& w) { return QPoint(800 - w.width() - 10, 30); }},
      {"left",
       {10, 300},
       "0 0 30 600",
       [](const QSize& w) { return QPoint(30, 600 - w.height() - 10); }},
      {"right",
       {790, 300},
       "770 0 800 600",
       [](const QSize& w) { return QPoint(770 - w.width(), 600 - w.height()); }},
  };
  for (const Case& c : kCases) {
    StartShortPanel(c.Edge);
    PointAt(c.Pointer);
    const Shown shown = ShowBeside(c.Taskbar);
    EXPECT_EQ(shown.Taskbar, c.Taskbar) << c.Edge;
    EXPECT_EQ(shown.Window.topLeft(), c.Corner(shown.Window.size())) << c.Edge;
    EXPECT_FALSE(AreaOf(kDescriptionColor, Picture(shown.Window)).isEmpty()) << c.Edge;
  }
}

TEST_F(TooltipWindowTest, FindsAPanelThatDoesNotSayWhatItIsByTheIconInIt) {
  StartPanel("bottom", {"--widthtype", "request", "--SetDockType", "false"});
  StartProbe();
  Tell("icon");
  PointAt({400, 585});
  Shown shown;
  EXPECT_TRUE(ComesAbout([&] {
    shown = Show();
    Close();
    return shown.Taskbar == "0 570 800 600";
  })) << shown.Taskbar;
}

TEST_F(TooltipWindowTest, WithoutPanelItStandsInTheLeftBottomCorner) {
  StartProbe();
  const Shown shown = Show();
  EXPECT_EQ(shown.Taskbar, "0 0 0 0");
  EXPECT_EQ(shown.Window.topLeft(), QPoint(0, 600 - shown.Window.height() - 10));
}

TEST_F(TooltipWindowTest, ShowsRowsInTheirColoursWithinEvenMarginsAndAFrame) {
  StartProbe();
  const QRect window = Show().Window;
  const QImage picture = Picture(window);
  const QRect descriptions = AreaOf(kDescriptionColor, picture);
  const QRect values = AreaOf(kValueColor, picture);

  EXPECT_EQ(RowsOf(kDescriptionColor, picture), 2);
  EXPECT_EQ(RowsOf(kValueColor, picture), 2);
  EXPECT_NEAR(descriptions.left(), 12, 2);  // 180 twips
  EXPECT_NEAR(window.width() - 1 - values.right(), 12, 3);
  EXPECT_GT(values.right(), descriptions.right());
  EXPECT_GE(descriptions.top(), 10);  // 150 twips, and what a letter leaves free above itself
  EXPECT_LE(descriptions.bottom(), window.height() - 10);

  const QPoint middles[] = {{window.width() / 2, 0},
                            {window.width() / 2, window.height() - 1},
                            {0, window.height() / 2},
                            {window.width() - 1, window.height() / 2}};
  const QRgb frame = picture.pixel(middles[0]);
  EXPECT_FALSE(Like(frame, kBack));
  for (const QPoint& middle : middles) EXPECT_EQ(picture.pixel(middle), frame);
  EXPECT_EQ(picture.pixel(1, 1), kBack.rgb());
  EXPECT_EQ(picture.pixel(window.width() - 2, window.height() - 2), kBack.rgb());
}

TEST_F(TooltipWindowTest, PictureTakesThePlaceOfTheColour) {
  desktop_.Output("convert", {"-size", "20x600", "xc:#00c800", folder_.filePath("Skin.gif")});
  StartProbe();
  const QRect window = Show().Window;
  const QImage picture = Picture(window);
  EXPECT_EQ(picture.pixel(5, 5), QColor(0, 200, 0).rgb());
  EXPECT_EQ(picture.pixel(19, 5), QColor(0, 200, 0).rgb());
  EXPECT_NE(picture.pixel(20, 5), QColor(0, 200, 0).rgb());  // at its own size
  EXPECT_NE(picture.pixel(20, 5), kBack.rgb());
}

TEST_F(TooltipWindowTest, LiesOverOtherWindowsAndLeavesThemTheFocus) {
  const QRect corner(0, 350, 400, 240);
  const auto below = StartOtherWindow("below", corner);
  const QString focus = Focus();
  StartProbe();
  const QRect window = Show().Window;
  Picture(window);
  EXPECT_TRUE(corner.contains(window));
  EXPECT_TRUE(IsOnTop(window));
  EXPECT_EQ(Focus(), focus);
  const auto later = StartOtherWindow("later", corner);
  EXPECT_TRUE(IsOnTop(window));
  Close();
  EXPECT_TRUE(ComesAbout([&] { return !IsOnTop(window); }));
}

TEST_F(TooltipWindowTest, ScaleLeavesPlaceAndLookAsTheyAre) {
  StartShortPanel("bottom");
  PointAt({400, 590});
  const QRect plain = ShowBeside("0 570 800 600").Window;
  probe_.reset();
  StartProbe({"QT_SCALE_FACTOR=2"});
  const Shown shown = Show();
  EXPECT_EQ(shown.Taskbar, "0 285 400 300");
  EXPECT_NEAR(shown.Window.width(), plain.width(), 4);
  EXPECT_EQ(shown.Window.bottomRight(), QPoint(400 - 10 - 1, 285 - 1));

  const QRect onScreen(2 * shown.Window.topLeft(), 2 * shown.Window.size());
  const QImage picture = Picture(onScreen);
  EXPECT_EQ(RowsOf(kDescriptionColor, picture), 2);
  EXPECT_NEAR(AreaOf(kDescriptionColor, picture).left(), 24, 3);
  EXPECT_FALSE(Like(picture.pixel(onScreen.width() / 2, 1), kBack));  // a frame of two pixels
  EXPECT_EQ(picture.pixel(onScreen.width() / 2, 2), kBack.rgb());
}

TEST_F(TooltipWindowTest, StaysOnTheScreenOfThePointer) {
  for (const char* const side : {"0", "400"}) {
    desktop_.Output("xrandr",
                    {"--setmonitor", QString("side") + side,
                     QString("400/100x600/150+") + side + "+0", *side == '0' ? "screen" : "none"});
  }
  PointAt({700, 300});
  StartProbe();
  EXPECT_EQ(Show().Window.x(), 400);
  Close();
  PointAt({100, 300});
  EXPECT_EQ(Show().Window.x(), 0);
}

}  // namespace
}  // namespace quillbox
