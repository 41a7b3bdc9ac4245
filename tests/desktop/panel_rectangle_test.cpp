#include "qt_tray/panel_rectangle.h"

#include <gtest/gtest.h>

#include <ostream>
#include <sstream>
#include <string>

namespace quillbox {

// Found by GoogleTest, to say which rectangle it was.
void PrintTo(ScreenEdge edge, std::ostream* out) {
  *out << "edge " << static_cast<int>(edge);
}

namespace {

constexpr QSize kScreen(800, 600);

std::string Shown(const QRect& area) {
  std::ostringstream text;
  text << area.x() << ',' << area.y() << ' ' << area.width() << 'x' << area.height();
  return text.str();
}

TEST(PanelRectangle, EdgeIsToldByShapeAndPlace) {
  struct Case {
    const char* Name;
    QRect Panel;
    ScreenEdge Edge;
  };
  const Case kCases[] = {
      {"whole bottom", {0, 570, 800, 30}, ScreenEdge::kBottom},
      {"whole top", {0, 0, 800, 30}, ScreenEdge::kTop},
      {"whole left", {0, 0, 30, 600}, ScreenEdge::kLeft},
      {"whole right", {770, 0, 30, 600}, ScreenEdge::kRight},
      {"raised above the bottom", {0, 560, 800, 30}, ScreenEdge::kBottom},
      {"lowered below the top", {0, 6, 800, 30}, ScreenEdge::kTop},
      {"short at the bottom right", {700, 570, 100, 30}, ScreenEdge::kBottom},
      {"short at the top left", {0, 0, 100, 30}, ScreenEdge::kTop},
      {"short at the right bottom", {770, 500, 30, 100}, ScreenEdge::kRight},
      {"one icon in the left edge's middle", {0, 290, 28, 26}, ScreenEdge::kLeft},
      {"one icon in the right edge's middle", {772, 290, 28, 26}, ScreenEdge::kRight},
      {"one icon in the bottom right corner", {774, 574, 26, 26}, ScreenEdge::kBottom},
      {"one icon in the top right corner", {774, 0, 26, 26}, ScreenEdge::kTop},
  };
  for (const Case& c : kCases) EXPECT_EQ(EdgeOf(c.Panel, kScreen), c.Edge) << c.Name;
}

TEST(PanelRectangle, PanelIsDrawnOutOverItsEdge) {
  struct Case {
    const char* Name;
    QRect Panel;
    ScreenEdge Edge;
    QRect Whole;
  };
  const Case kCases[] = {
      {"short at the bottom", {600, 570, 200, 30}, ScreenEdge::kBottom, {0, 570, 800, 30}},
      {"short at the top", {0, 0, 200, 30}, ScreenEdge::kTop, {0, 0, 800, 30}},
      {"short at the left", {0, 500, 30, 100}, ScreenEdge::kLeft, {0, 0, 30, 600}},
      {"short at the right", {770, 0, 30, 100}, ScreenEdge::kRight, {770, 0, 30, 600}},
      {"with a gap below", {10, 560, 780, 30}, ScreenEdge::kBottom, {0, 560, 800, 40}},
      {"with a gap above", {10, 6, 780, 30}, ScreenEdge::kTop, {0, 0, 800, 36}},
      {"with a gap beside", {764, 10, 30, 580}, ScreenEdge::kRight, {764, 0, 36, 600}},
      {"whole already", {0, 570, 800, 30}, ScreenEdge::kBottom, {0, 570, 800, 30}},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(Shown(OverWholeEdge(c.Panel, c.Edge, kScreen)), Shown(c.Whole)) << c.Name;
  }
}

TEST(PanelRectangle, StripBesidesTheWorkArea) {
  struct Case {
    const char* Name;
    QRect WorkArea;
    QPoint Icon;
    QRect Strip;
  };
  const Case kCases[] = {
      {"no panel", {0, 0, 800, 600}, {10, 10}, {}},
      {"bottom", {0, 0, 800, 570}, {700, 590}, {0, 570, 800, 30}},
      {"top", {0, 30, 800, 570}, {700, 10}, {0, 0, 800, 30}},
      {"left", {30, 0, 770, 600}, {10, 500}, {0, 0, 30, 600}},
      {"right", {0, 0, 770, 600}, {790, 500}, {770, 0, 30, 600}},
      {"the icon's of two", {70, 30, 730, 570}, {700, 10}, {0, 0, 800, 30}},
      {"the wider of two, icon elsewhere", {70, 30, 730, 570}, {400, 300}, {0, 0, 70, 600}},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(Shown(StripBesides(c.WorkArea, kScreen, c.Icon)), Shown(c.Strip)) << c.Name;
  }
}

TEST(PanelRectangle, WindowStaysWithinTheScreen) {
  struct Case {
    const char* Name;
    QPoint Place;
    QSize Window;
    QPoint Within;
  };
  const Case kCases[] = {
      {"inside", {100, 100}, {200, 100}, {100, 100}},
      {"flush with right and bottom", {600, 500}, {200, 100}, {600, 500}},
      {"over right and bottom", {601, 501}, {200, 100}, {600, 500}},
      {"over left and top", {-5, -7}, {200, 100}, {0, 0}},
      {"larger than the screen", {-50, -70}, {900, 700}, {0, 0}},
  };
  for (const Case& c : kCases) {
    const QPoint within = WithinScreen(c.Place, c.Window, kScreen);
    EXPECT_EQ(within.x(), c.Within.x()) << c.Name;
    EXPECT_EQ(within.y(), c.Within.y()) << c.Name;
  }
}

}  // namespace
}  // namespace quillbox
