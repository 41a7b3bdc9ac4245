#include "qt_tray/qt_tray_host.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMessageBox>
#include <QScreen>
#include <utility>

#include "qt_base/icon_picture.h"
#include "qt_base/unicode_text.h"

namespace quillbox {

NoTrayNotice::NoTrayNotice(std::chrono::milliseconds wait) {
  timer_.setSingleShot(true);
  timer_.setInterval(wait);
  QObject::connect(&timer_, &QTimer::timeout, [this] { Show(); });
}

void NoTrayNotice::Begin() {
  if (!told_ && !timer_.isActive()) timer_.start();
}

void NoTrayNotice::Show() {
  told_ = true;
  auto* const box = new QMessageBox(
      QMessageBox::Information, "Quillbox",
      "Quillbox is running, but this desktop has no notification area for its icon.\n\n"
      "Add one to your panel (it is often called \"Notification Area\", \"System Tray\" or "
      "\"Status Tray Plugin\"; on GNOME it is the extension \"AppIndicator and KStatusNotifierItem "
      "Support\"). The icon then appears by itself; you need not start Quillbox again.");
  box->setObjectName("NoTrayNotice");
  box->setTextFormat(Qt::PlainText);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setModal(false);
  box->show();
}

QtTrayHost::QtTrayHost()
    : presence_([this] { TrayChanged(); }),
      menu_([this](const MenuItem& item) {
        if (events_ != nullptr) events_->MenuItemChosen(item);
      }),
      item_({[this](TrayMouse code) { Report(code); },
             [this] {
               if (presence_.Current().Type != Tray::Kind::kStatusNotifier)
                 presence_.Watcher().AskForHost();
             }}) {}

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

// The item is offered before a host is known: there may be one that nobody tells of.
bool QtTrayHost::Add(const TrayIconRecord& record) {
  wanted_ = true;
  ShowPicture(record.hIcon);
  presence_.Watcher().Offer(item_.Appear());
  const Tray tray = presence_.Current();
  if (!tray.IsThere()) {
    presence_.Watcher().AskForHost();
    if (tray.Type == Tray::Kind::kNone) notice_.Begin();
    return false;
  }
  notice_.Cancel();
  if (tray.Type == Tray::Kind::kX11 && !dock_) {
    dock_ = std::make_unique<X11Dock>(tray.Window, [this](TrayMouse code) { Report(code); });
    dock_->SetPicture(picture_);
  }
  shown_ = true;
  ShowBalloon(record);
  return true;
}

bool QtTrayHost::Modify(const TrayIconRecord& record) {
  if (!shown_) return false;
  if ((record.uFlags & kNifIcon) != 0) ShowPicture(record.hIcon);
  ShowBalloon(record);
  return true;
}

bool QtTrayHost::Delete() {
  wanted_ = false;
  notice_.Cancel();
  presence_.Watcher().Withdraw();
  item_.Vanish();
  dock_.reset();
  balloon_.reset();
  return std::exchange(shown_, false);
}

// The old tray took the icon with it.
void QtTrayHost::TrayChanged() {
  shown_ = false;
  dock_.reset();
  balloon_.reset();
  if (!wanted_) return;
  const Tray& tray = presence_.Current();
  if (tray.IsThere() && events_ != nullptr) events_->TaskbarCreated();
  if (tray.Type == Tray::Kind::kNone) notice_.Begin();
}

void QtTrayHost::ShowPicture(const std::string& path) {
  if (shownPicture_ == path) return;
  picture_ = path.empty() ? QIcon() : PictureFromFile(path);
  if (picture_.isNull()) picture_ = OwnPicture();
  shownPicture_ = path;
  item_.SetPicture(picture_);
  if (dock_) dock_->SetPicture(picture_);
}

// In a dock the program's own window takes its place.
void QtTrayHost::TooltipChanged(const std::string& text) {
  item_.SetTip(ToUnicodeLines(text));
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
                        static_cast<int>(record.uTimeout), picture_};
  notifications_.Show(balloon, [this](const Balloon& refused) {
    if (!dock_) return;
    balloon_ = std::make_unique<BalloonWindow>(refused, dock_->Place());
  });
}

bool QtTrayHost::CanShowPicture(const std::string& path) {
  return !PictureFromFile(path).isNull();
}

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
