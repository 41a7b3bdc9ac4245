#include "qt_tray/qt_tray_host.h"

#include "qt_base/icon_picture.h"
#include "qt_base/unicode_text.h"
#include "qt_tray/tray_menu_view.h"

namespace quillbox {

QtTrayHost::QtTrayHost() : presence_([this] { TrayChanged(); }) {
  QObject::connect(&menu_, &QMenu::aboutToShow, [this] { FillTrayMenu(); });
}

bool QtTrayHost::Apply(TrayOperation operation, const TrayIconRecord& record) {
  switch (operation) {
    case TrayOperation::kAdd:
      return Add(record);
    case TrayOperation::kModify:
      return Modify(record);
    case TrayOperation::kDelete:
      return Delete();
  }
  return false;
}

bool QtTrayHost::Add(const TrayIconRecord& record) {
  wanted_ = true;
  if (!presence_.Present()) {
    notice_.Begin();
    return false;
  }
  notice_.Cancel();
  if (!icon_) icon_ = std::make_unique<QSystemTrayIcon>();
  ShowPicture(record.hIcon);
  icon_->show();
  if (!mouse_) FurnishIcon();
  ShowBalloon(record);
  return true;
}

// Only the icon that is shown tells which kind of tray Qt has chosen. A desktop that draws it asks
// for tip and menu when this program handles events again.
void QtTrayHost::FurnishIcon() {
  mouse_ = std::make_unique<TrayIconMouse>(*icon_, [this](TrayMouse code) { Report(code); });
  presence_.QtChose(mouse_->InDock());
  ShowTip();
  if (mouse_->InDock()) return;
  FillTrayMenu();  // some hosts look at it before they say that they show it
  icon_->setContextMenu(&menu_);
}

bool QtTrayHost::Modify(const TrayIconRecord& record) {
  if (!icon_) return false;
  if ((record.uFlags & kNifIcon) != 0) ShowPicture(record.hIcon);
  ShowBalloon(record);
  return true;
}

bool QtTrayHost::Delete() {
  wanted_ = false;
  notice_.Cancel();
  shownPicture_.reset();
  const bool had = icon_ != nullptr;
  mouse_.reset();
  icon_.reset();
  return had;
}

// The old tray took the icon with it, and an icon object doesn't survive its tray on every desktop.
void QtTrayHost::TrayChanged() {
  mouse_.reset();
  icon_.reset();
  shownPicture_.reset();
  if (!wanted_) return;
  if (presence_.Present() && events_ != nullptr) events_->TaskbarCreated();
}

void QtTrayHost::ShowPicture(const std::string& path) {
  if (shownPicture_ == path) return;
  QIcon picture;
  if (!path.empty()) picture = PictureFromFile(path);
  icon_->setIcon(picture.isNull() ? OwnPicture() : picture);
  shownPicture_ = path;
}

void QtTrayHost::TooltipChanged(const std::string& text) {
  tip_ = text;
  if (mouse_) ShowTip();
}

// In a dock the program's own window takes its place.
void QtTrayHost::ShowTip() {
  if (!mouse_->InDock()) icon_->setToolTip(ToUnicodeLines(tip_));
}

// A move is only noted. What a click leads to may pump events, and in those the tray can go and
// take the icon with it, so the icon must be done with the click first.
void QtTrayHost::Report(TrayMouse code) {
  if (events_ == nullptr) return;
  if (code == TrayMouse::kMove) return events_->Form_MouseMove(code);
  QMetaObject::invokeMethod(
      &clicks_, [this, code] { events_->Form_MouseMove(code); }, Qt::QueuedConnection);
}

void QtTrayHost::ShowBalloon(const TrayIconRecord& record) {
  if ((record.uFlags & kNifInfo) == 0 || record.szInfo.Text().empty()) return;
  const Balloon balloon{ToUnicode(record.szInfoTitle.Text()), ToUnicodeLines(record.szInfo.Text()),
                        static_cast<int>(record.uTimeout)};
  notifications_.Show(balloon, [this](const Balloon& refused) {
    if (!icon_) return;
    icon_->showMessage(refused.Title, refused.Text, QSystemTrayIcon::NoIcon, refused.TimeoutMs);
  });
}

bool QtTrayHost::CanShowPicture(const std::string& path) {
  return !PictureFromFile(path).isNull();
}

void QtTrayHost::FillTrayMenu() {
  if (events_ == nullptr) return;
  FillMenu(menu_, events_->TrayMenu(), [this](const MenuItem& item) {
    if (events_ != nullptr) events_->MenuItemChosen(item);
  });
}

}  // namespace quillbox
