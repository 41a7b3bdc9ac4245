#include "qt_tray/tray_icon_mouse.h"

#include <QApplication>
#include <QEvent>
#include <QPointerEvent>
#include <QStyleHints>
#include <chrono>
#include <utility>

#include "qt_base/window_system.h"

namespace quillbox {
namespace {

std::chrono::milliseconds DoubleClickTime() {
  return std::chrono::milliseconds(QGuiApplication::styleHints()->mouseDoubleClickInterval());
}

}  // namespace

TrayIconMouse::TrayIconMouse(const QSystemTrayIcon& icon, std::function<void(TrayMouse)> report)
    : report_(std::move(report)), inDock_(WatchDockedWindow()) {
  connect(&icon, &QSystemTrayIcon::activated, this,
          inDock_ ? &TrayIconMouse::ActivatedInDock : &TrayIconMouse::ActivatedByHost);
}

// Qt keeps the window of a docked icon to itself, and says nothing of the moves that it gets. When
// a tray has come it throws the window away once more and makes another. False: there is none.
bool TrayIconMouse::WatchDockedWindow() {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->inherits("QSystemTrayIconSys")) window_ = window;
  }
  if (!window_) return false;
  window_->setMouseTracking(true);
  window_->installEventFilter(this);
  connect(
      window_, &QObject::destroyed, this, [this] { WatchDockedWindow(); }, Qt::QueuedConnection);
  return true;
}

// A cursor that jumps onto the icon enters without a move.
bool TrayIconMouse::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::Enter || event->type() == QEvent::MouseMove) {
    lastPlace_ = static_cast<QSinglePointEvent*>(event)->globalPosition().toPoint();
    report_(TrayMouse::kMove);
  }
  return false;
}

std::optional<QPoint> TrayIconMouse::LastPlace(QPoint cursor) const {
  if (!window_ || !window_->rect().contains(window_->mapFromGlobal(cursor))) return std::nullopt;
  return lastPlace_;
}

// Reported when the button goes down.
void TrayIconMouse::ActivatedInDock(QSystemTrayIcon::ActivationReason reason) {
  if (reason == QSystemTrayIcon::Trigger) report_(TrayMouse::kLeftDown);
  if (reason == QSystemTrayIcon::DoubleClick) report_(TrayMouse::kLeftDoubleClick);
  if (reason == QSystemTrayIcon::Context) report_(TrayMouse::kRightDown);
}

// Most hosts show the menu that they were given. One that asks for it can have it where a menu of
// ours can be closed by a click elsewhere, and the window beside the icon needs a place of its own.
void TrayIconMouse::ActivatedByHost(QSystemTrayIcon::ActivationReason reason) {
  if (reason == QSystemTrayIcon::Trigger) {
    report_(activations_.Next(Activations::Clock::now(), DoubleClickTime()));
  }
  if (reason == QSystemTrayIcon::DoubleClick) report_(TrayMouse::kLeftDoubleClick);
  if (!OnX11()) return;
  if (reason == QSystemTrayIcon::MiddleClick) report_(TrayMouse::kMove);
  if (reason == QSystemTrayIcon::Context) report_(TrayMouse::kRightDown);
}

}  // namespace quillbox
