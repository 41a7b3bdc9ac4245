// A balloon in a window of our own, for desktops without a notification service.
#pragma once

#include <QFrame>

#include "qt_tray/notification_service.h"

namespace quillbox {

// Goes when its time is over or it is clicked.
class BalloonWindow : public QFrame {
 public:
  // `icon`: of the tray's icon, on the screen.
  BalloonWindow(const Balloon& balloon, const QRect& icon);

 protected:
  void mousePressEvent(QMouseEvent*) override { hide(); }
};

}  // namespace quillbox
