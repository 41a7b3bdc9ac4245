// The icon in the tray: its picture, tip, menu and balloons, the notice that there is no tray, and
// the cursor over it.
#pragma once

#include <QObject>
#include <QPoint>
#include <QTimer>
#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "platform/host.h"
#include "platform/tooltip_window.h"
#include "platform/tray.h"
#include "qt_tray/balloons.h"
#include "qt_tray/dbus_menu.h"
#include "qt_tray/status_notifier_item.h"
#include "qt_tray/tray_presence.h"
#include "qt_tray/x11_tray.h"

namespace quillbox {

// Tells the person, once, that there is no place for the icon.
class NoTrayNotice {
 public:
  explicit NoTrayNotice(std::chrono::milliseconds wait = std::chrono::seconds(10));

  // The person is told when the wait is over, unless Cancel comes first. At most once a run.
  void Begin();
  void Cancel() { timer_.stop(); }

 private:
  void Show();

  QTimer timer_;
  bool told_ = false;
};

// Speaks the protocols of both kinds of tray itself: the toolkit's own class waits for an answer of
// the StatusNotifier service, which may be silent, and decides once a process which kind there is.
class QtTrayHost : public TrayHost {
 public:
  QtTrayHost();

  // Where a new tray, the mouse and the menu's events are reported.
  void Connect(HostEvents& events) { events_ = &events; }

  bool Apply(TrayOperation operation, const TrayIconRecord& record) override;
  void TooltipChanged(const std::string& text) override;
  void MenuChanged(const Menu& menu) override { menu_.Show(menu); }
  bool CanShowPicture(const std::string& path) override;

  // As X11Dock::LastPlace.
  std::optional<QPoint> LastPlaceOverIcon(QPoint cursor) const {
    return dock_ ? dock_->LastPlace(cursor) : std::nullopt;
  }

 private:
  void TrayChanged();
  bool Add(const TrayIconRecord& record);
  bool Modify(const TrayIconRecord& record);
  bool Delete();
  void ShowPicture(const std::string& path);
  void ShowBalloon(const TrayIconRecord& record);
  void Report(TrayMouse code);

  HostEvents* events_ = nullptr;
  QObject clicks_;  // receives those that wait for their turn
  TrayPresence presence_;
  NoTrayNotice notice_;
  NotificationService notifications_;
  DBusMenu menu_;
  StatusNotifierItem item_;        // for hosts that draw the icon
  std::unique_ptr<X11Dock> dock_;  // the icon in an X11 tray
  std::unique_ptr<BalloonWindow> balloon_;
  QIcon picture_;
  std::optional<std::string> shownPicture_;  // hIcon of the picture
  bool wanted_ = false;                      // the program has added its icon and not removed it
  bool shown_ = false;                       // it is in the current tray
};

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
