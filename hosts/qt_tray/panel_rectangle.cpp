#include "qt_tray/panel_rectangle.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace quillbox {
namespace {

constexpr std::array kEdges{ScreenEdge::kBottom, ScreenEdge::kTop, ScreenEdge::kLeft,
                            ScreenEdge::kRight};
constexpr int kLong = 2;  // so many times the other side, a side tells the direction of the panel

// QRect's own right and bottom are one short.
int RightOf(const QRect& area) {
  return area.x() + area.width();
}
int BottomOf(const QRect& area) {
  return area.y() + area.height();
}

int GapTo(ScreenEdge edge, const QRect& panel, const QSize& screen) {
  switch (edge) {
    case ScreenEdge::kBottom:
      return std::abs(screen.height() - BottomOf(panel));
    case ScreenEdge::kTop:
      return std::abs(panel.y());
    case ScreenEdge::kLeft:
      return std::abs(panel.x());
    case ScreenEdge::kRight:
      return std::abs(screen.width() - RightOf(panel));
  }
  return 0;
}

bool MayLieAlong(ScreenEdge edge, const QSize& panel) {
  const bool flat = edge == ScreenEdge::kBottom || edge == ScreenEdge::kTop;
  return flat ? panel.height() < kLong * panel.width() : panel.width() < kLong * panel.height();
}

}  // namespace

ScreenEdge EdgeOf(const QRect& panel, const QSize& screen) {
  ScreenEdge nearest = ScreenEdge::kBottom;
  int gap = -1;
  for (const ScreenEdge edge : kEdges) {
    if (!MayLieAlong(edge, panel.size())) continue;
    const int gapHere = GapTo(edge, panel, screen);
    if (gap >= 0 && gapHere >= gap) continue;
    gap = gapHere;
    nearest = edge;
  }
  return nearest;
}

QRect OverWholeEdge(const QRect& panel, ScreenEdge edge, const QSize& screen) {
  const int top = std::max(panel.y(), 0);
  const int left = std::max(panel.x(), 0);
  switch (edge) {
    case ScreenEdge::kBottom:
      return {0, top, screen.width(), screen.height() - top};
    case ScreenEdge::kTop:
      return {0, 0, screen.width(), BottomOf(panel)};
    case ScreenEdge::kLeft:
      return {0, 0, RightOf(panel), screen.height()};
    case ScreenEdge::kRight:
      return {left, 0, screen.width() - left, screen.height()};
  }
  return {};
}

QRect StripBesides(const QRect& workArea, const QSize& screen, const QPoint& icon) {
  const std::array strips{
      QRect(0, BottomOf(workArea), screen.width(), screen.height() - BottomOf(workArea)),
      QRect(0, 0, screen.width(), workArea.y()),
      QRect(0, 0, workArea.x(), screen.height()),
      QRect(RightOf(workArea), 0, screen.width() - RightOf(workArea), screen.height()),
  };
  QRect widest;
  for (const QRect& strip : strips) {
    if (strip.isEmpty()) continue;
    if (strip.contains(icon)) return strip;
    const auto thickness = [](const QRect& area) { return std::min(area.width(), area.height()); };
    if (widest.isEmpty() || thickness(strip) > thickness(widest)) widest = strip;
  }
  return widest;
}

QPoint WithinScreen(const QPoint& place, const QSize& window, const QSize& screen) {
  return {std::max(0, std::min(place.x(), screen.width() - window.width())),
          std::max(0, std::min(place.y(), screen.height() - window.height()))};
}

}  // namespace quillbox
