// The icon as a window of ours that an X11 tray takes in.
#pragma once

#include <QAbstractNativeEventFilter>
#include <QIcon>
#include <QPoint>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <optional>

#include "platform/host.h"

namespace quillbox {

// Every event of the mouse is seen as it happens.
class X11Dock : public QWidget, QAbstractNativeEventFilter {
 public:
  // `tray` is the tray's window. `report` is called while Qt handles the event, so it must not run
  // an event loop, nor throw the icon away.
  X11Dock(std::uint32_t tray, std::function<void(TrayMouse)> report);

  void SetPicture(const QIcon& picture);

  // On the screen.
  QRect Place() const;

  // Where the cursor was over the icon when that was last reported, if `cursor` is still over it.
  // Else nothing. Both on the screen.
  std::optional<QPoint> LastPlace(QPoint cursor) const;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
  void AskToBeTakenIn(std::uint32_t tray);
  void ShowInTray();

  const std::function<void(TrayMouse)> report_;
  const bool seeThrough_;  // the tray mixes the icon's pixels with its own
  QIcon picture_;
  QPoint lastPlace_;
};

}  // namespace quillbox
