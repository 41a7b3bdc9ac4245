// X11 trays: whether one is there, and the window of ours that it takes in as the icon.
#pragma once

#include <QAbstractNativeEventFilter>
#include <QIcon>
#include <QPoint>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <optional>

#include "platform/host.h"

struct xcb_connection_t;

namespace quillbox {

// An X11 tray owns the selection _NET_SYSTEM_TRAY_S0, of which the server reports each change, and
// tells all programs when it is ready: one that is asked earlier may give an icon no room. On other
// window systems there never is one.
class X11Tray : public QAbstractNativeEventFilter {
 public:
  // `onChange` runs from the event loop when a tray is ready, and when it is gone.
  explicit X11Tray(std::function<void()> onChange);
  ~X11Tray() override;

  // The tray's window; 0: there is none.
  std::uint32_t Owner() const { return owner_; }
  // How many have told so far that they are ready. An icon that was put in before is to be put in
  // anew.
  int Announcements() const { return announcements_; }

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

 private:
  void Announced(std::uint32_t owner);

  std::function<void()> onChange_;
  xcb_connection_t* connection_ = nullptr;
  std::uint32_t selection_ = 0, manager_ = 0;
  std::uint8_t selectionEvent_ = 0;
  std::uint32_t owner_ = 0;
  int announcements_ = 0;
};

// The icon as a window of ours that an X11 tray takes in. Every event of the mouse is seen as it
// happens.
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
