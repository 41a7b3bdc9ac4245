// The icon in the tray: its picture, tip, menu and balloons.
#pragma once

#include <QMenu>
#include <QSystemTrayIcon>
#include <memory>
#include <optional>
#include <string>

#include "platform/host_events.h"
#include "platform/tray_host.h"
#include "qt_tray/no_tray_notice.h"
#include "qt_tray/notification_service.h"
#include "qt_tray/tray_icon_mouse.h"
#include "qt_tray/tray_presence.h"

namespace quillbox {

class QtTrayHost : public TrayHost {
 public:
  QtTrayHost();

  // Where a new tray, the mouse and the menu's events are reported.
  void Connect(HostEvents& events) { events_ = &events; }

  bool Apply(TrayOperation operation, const TrayIconRecord& record) override;
  void TooltipChanged(const std::string& text) override;
  bool CanShowPicture(const std::string& path) override;

  // As TrayIconMouse::LastPlace.
  std::optional<QPoint> LastPlaceOverIcon(QPoint cursor) const {
    return mouse_ ? mouse_->LastPlace(cursor) : std::nullopt;
  }

 private:
  void TrayChanged();
  bool Add(const TrayIconRecord& record);
  bool Modify(const TrayIconRecord& record);
  bool Delete();
  void FurnishIcon();
  void Report(TrayMouse code);
  void ShowPicture(const std::string& path);
  void ShowTip();
  void ShowBalloon(const TrayIconRecord& record);
  void FillTrayMenu();

  HostEvents* events_ = nullptr;
  TrayPresence presence_;
  NoTrayNotice notice_;
  NotificationService notifications_;
  QObject clicks_;  // receives those that wait for their turn
  QMenu menu_;      // a copy of it is the tray's to show, where the tray does that
  std::unique_ptr<QSystemTrayIcon> icon_;
  std::unique_ptr<TrayIconMouse> mouse_;     // lives as long as the icon
  std::optional<std::string> shownPicture_;  // hIcon of the picture in the tray
  std::string tip_;
  bool wanted_ = false;  // the program has added its icon and not removed it
};

}  // namespace quillbox
