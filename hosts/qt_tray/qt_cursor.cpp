#include "qt_tray/qt_cursor.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

namespace quillbox {

PixelPoint DevicePixel(QPoint place, QPoint origin, double ratio) {
  const QPoint pixel = origin + (QPointF(place - origin) * ratio).toPoint();
  return {pixel.x(), pixel.y()};
}

PixelPoint QtCursor::Position() {
  const QPoint cursor = QCursor::pos();
  const QPoint place = tray_.LastPlaceOverIcon(cursor).value_or(cursor);
  const QScreen* const screen = QGuiApplication::screenAt(place);
  if (screen == nullptr) return {place.x(), place.y()};
  return DevicePixel(place, screen->geometry().topLeft(), screen->devicePixelRatio());
}

}  // namespace quillbox
