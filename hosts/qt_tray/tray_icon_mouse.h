// What the mouse does at the tray icon, as the program's own codes.
#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QSystemTrayIcon>
#include <QWidget>
#include <functional>
#include <optional>

#include "platform/host_events.h"
#include "qt_tray/activations.h"

namespace quillbox {

// In an X11 dock every event is seen as it happens. A StatusNotifier host reports no movement, and
// of the left button only that the icon was activated; there a click with the middle button stands
// for the cursor that comes over the icon.
class TrayIconMouse : public QObject {
 public:
  // For an icon that is shown; `report` is called while Qt handles the event, so it must not run an
  // event loop, nor throw the icon away.
  TrayIconMouse(const QSystemTrayIcon& icon, std::function<void(TrayMouse)> report);

  // Whether the icon is a window of ours in an X11 dock, so that moves over it are reported.
  bool InDock() const { return inDock_; }

  // Where the cursor was over the icon when that was last reported, if `cursor` is still over it.
  // Else nothing. Both on the screen.
  std::optional<QPoint> LastPlace(QPoint cursor) const;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool WatchDockedWindow();
  void ActivatedInDock(QSystemTrayIcon::ActivationReason reason);
  void ActivatedByHost(QSystemTrayIcon::ActivationReason reason);

  const std::function<void(TrayMouse)> report_;
  QPointer<QWidget> window_;  // of the docked icon
  const bool inDock_;
  QPoint lastPlace_;
  Activations activations_;
};

}  // namespace quillbox
