#include "qt_tray/icon_surroundings.h"

#include <QCursor>
#include <QGuiApplication>
#include <cmath>
#include <optional>

#include "qt_tray/panel_rectangle.h"
#include "qt_tray/x11_panel.h"

namespace quillbox {
namespace {

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
