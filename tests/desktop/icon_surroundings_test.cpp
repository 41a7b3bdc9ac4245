#include "qt_tray/icon_surroundings.h"

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

TEST(PanelRectangle, EdgeIsToldByShapeAndPlaceAndThePanelDrawnOutOverIt) {
  constexpr auto kBottom = ScreenEdge::kBottom, kTop = ScreenEdge::kTop;
  constexpr auto kLeft = ScreenEdge::kLeft, kRight = ScreenEdge::kRight;
  struct Case {
    const char* Name;
    QRect Panel;
    ScreenEdge Edge;
    QRect Whole;
  };
  const Case kCases[] = {
      {"whole bottom", {0, 570, 800, 30}, kBottom, {0, 570, 800, 30}},
      {"whole left", {0, 0, 30, 600}, kLeft, {0, 0, 30, 600}},
      {"raised above the bottom", {10, 560, 780, 30}, kBottom, {0, 560, 800, 40}},
      {"lowered below the top", {10, 6, 780, 30}, kTop, {0, 0, 800, 36}},
      {"with a gap beside", {764, 10, 30, 580}, kRight, {764, 0, 36, 600}},
      {"short at the bottom right", {700, 570, 100, 30}, kBottom, {0, 570, 800, 30}},
      {"short at the top left", {0, 0, 100, 30}, kTop, {0, 0, 800, 30}},
      {"short at the left bottom", {0, 500, 30, 100}, kLeft, {0, 0, 30, 600}},
      {"short at the right top", {770, 0, 30, 100}, kRight, {770, 0, 30, 600}},
      {"one icon in the left edge's middle", {0, 290, 28, 26}, kLeft, {0, 0, 28, 600}},
      {"one icon in the right edge's middle", {772, 290, 28, 26}, kRight, {772, 0, 28, 600}},
      {"one icon in the bottom right corner", {774, 574, 26, 26}, kBottom, {0, 574, 800, 26}},
      {"one icon in the top right corner", {774, 0, 26, 26}, kTop, {0, 0, 800, 26}},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(EdgeOf(c.Panel, kScreen), c.Edge) << c.Name;
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
    QPoint Place;
    QSize Window;
    QPoint Within;
  };
  const Case kCases[] = {
      {{100, 100}, {200, 100}, {100, 100}}, {{600, 500}, {200, 100}, {600, 500}},
      {{601, 501}, {200, 100}, {600, 500}}, {{-5, -7}, {200, 100}, {0, 0}},
      {{-50, -70}, {900, 700}, {0, 0}},
  };
  for (const Case& c : kCases) {
    const QPoint within = WithinScreen(c.Place, c.Window, kScreen);
    EXPECT_EQ(Shown({within, c.Window}), Shown({c.Within, c.Window}));
  }
}

}  // namespace
}  // namespace quillbox
