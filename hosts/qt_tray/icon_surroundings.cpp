#include "qt_tray/icon_surroundings.h"

#include <QCursor>
#include <QGuiApplication>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <vector>

#include "qt_tray/x11_server.h"

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

namespace {

struct X11Panel {
  QRect Area;                          // on the server's screen, in its pixels
  std::optional<ScreenEdge> KeptEdge;  // the one that it keeps from other windows, if it says so
};

class Windows {
 public:
  explicit Windows(xcb_connection_t* connection) : connection_(connection) {}

  // From the one that lies on the desktop to the innermost.
  std::vector<xcb_window_t> BelowPointer() const {
    std::vector<xcb_window_t> windows;
    xcb_window_t window = RootWindow(connection_);
    while (true) {
      const auto pointer = Owned(
          xcb_query_pointer_reply(connection_, xcb_query_pointer(connection_, window), nullptr));
      if (!pointer || pointer->child == XCB_WINDOW_NONE) return windows;
      window = pointer->child;
      windows.push_back(window);
    }
  }

  bool IsDock(xcb_window_t window) const {
    const auto types = Numbers(window, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM);
    const xcb_atom_t dock = AtomNamed(connection_, "_NET_WM_WINDOW_TYPE_DOCK");
    return std::find(types.begin(), types.end(), dock) != types.end();
  }

  std::optional<ScreenEdge> KeptEdge(xcb_window_t window) const {
    // Left, right, top, bottom; what follows in the longer one is where along the edge.
    auto widths = Numbers(window, "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL);
    if (widths.size() < 4) widths = Numbers(window, "_NET_WM_STRUT", XCB_ATOM_CARDINAL);
    if (widths.size() < 4) return std::nullopt;
    const auto widest = std::max_element(widths.begin(), widths.begin() + 4);
    if (*widest == 0) return std::nullopt;
    constexpr ScreenEdge kOrder[] = {ScreenEdge::kLeft, ScreenEdge::kRight, ScreenEdge::kTop,
                                     ScreenEdge::kBottom};
    return kOrder[widest - widths.begin()];
  }

  // Whether this program made it.
  bool IsOurs(xcb_window_t window) const {
    const xcb_setup_t* const setup = xcb_get_setup(connection_);
    return (window & ~setup->resource_id_mask) == setup->resource_id_base;
  }

  QRect Area(xcb_window_t window) const {
    const auto size =
        Owned(xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, window), nullptr));
    const auto corner = Owned(xcb_translate_coordinates_reply(
        connection_, xcb_translate_coordinates(connection_, window, RootWindow(connection_), 0, 0),
        nullptr));
    if (!size || !corner) return {};
    return {corner->dst_x, corner->dst_y, size->width, size->height};
  }

 private:
  std::vector<std::uint32_t> Numbers(xcb_window_t window, std::string_view name,
                                     xcb_atom_t type) const {
    const auto property = Owned(xcb_get_property_reply(
        connection_,
        xcb_get_property(connection_, 0, window, AtomNamed(connection_, name), type, 0, 12),
        nullptr));
    if (!property || property->format != 32) return {};
    const auto* const first =
        static_cast<const std::uint32_t*>(xcb_get_property_value(property.get()));
    return {first, first + property->value_len};
  }

  xcb_connection_t* connection_;
};

// The window below the pointer that says of itself that it is a panel, or that has taken in the
// tray icon of this program. Nothing when there is none, and on other window systems.
std::optional<X11Panel> PanelBelowPointer() {
  xcb_connection_t* const connection = ConnectionOfQt();
  if (connection == nullptr) return std::nullopt;
  const Windows windows(connection);
  const std::vector<xcb_window_t> chain = windows.BelowPointer();
  for (const xcb_window_t window : chain) {
    const std::optional<ScreenEdge> edge = windows.KeptEdge(window);
    if (edge || windows.IsDock(window)) return X11Panel{windows.Area(window), edge};
  }
  // Not all trays say what they are. A window of ours inside another program's is the icon.
  if (chain.size() > 1 && !windows.IsOurs(chain.front()) && windows.IsOurs(chain.back())) {
    return X11Panel{windows.Area(chain.front()), std::nullopt};
  }
  return std::nullopt;
}

// The server counts in the screen's real pixels; both agree on the screen's corner. Rounded
// outwards, so that a window beside it covers nothing of it.
QRect InQtPixels(const QRect& area, const QScreen& screen) {
  const QPoint corner = screen.geometry().topLeft();
  const qreal ratio = screen.devicePixelRatio();
  const QRectF exact(QPointF(area.topLeft() - corner) / ratio, QSizeF(area.size()) / ratio);
  return exact.toAlignedRect();
}

}  // namespace

QScreen* ScreenOfIcon() {
  QScreen* const screen = QGuiApplication::screenAt(QCursor::pos());
  return screen != nullptr ? screen : QGuiApplication::primaryScreen();
}

QRect PanelOn(const QScreen& screen) {
  const QSize size = screen.size();
  if (const std::optional<X11Panel> panel = PanelBelowPointer()) {
    const QRect area = InQtPixels(panel->Area, screen).intersected({QPoint(0, 0), size});
    if (area.isEmpty()) return {};
    return OverWholeEdge(area, panel->KeptEdge.value_or(EdgeOf(area, size)), size);
  }
  const QPoint corner = screen.geometry().topLeft();
  return StripBesides(screen.availableGeometry().translated(-corner), size,
                      QCursor::pos() - corner);
}

}  // namespace quillbox
