// The mouse cursor as Qt finds it.
#pragma once

#include <QPoint>

#include "platform/tooltip_window.h"
#include "qt_tray/qt_tray_host.h"

namespace quillbox {

// Over the icon it stands where the program was last told: one that moves on within the icon must
// not seem to have left it, only because the news of the move is still on its way.
class QtCursor : public Cursor {
 public:
  // The tray must outlive this.
  explicit QtCursor(const QtTrayHost& tray) : tray_(tray) {}

  PixelPoint Position() override;

 private:
  const QtTrayHost& tray_;
};

// The device's pixel of a place in Qt's own, on a screen that begins at `origin` in both and has
// `ratio` of the device's pixels to one of Qt's.
PixelPoint DevicePixel(QPoint place, QPoint origin, double ratio);

}  // namespace quillbox
