#include "qt_tray/qt_tray_menu_host.h"

#include <QCursor>
#include <QMenu>

#include "qt_base/window_system.h"
#include "qt_tray/tray_menu_view.h"

namespace quillbox {

// There is no window of ours to bring there, and on X11 no need for one: the menu takes the mouse
// and the keyboard by itself, and a click elsewhere closes it. Where a menu can't, nothing opens it
// but the tray's host, so the answer only keeps the promise.
bool QtTrayMenuHost::BringToForeground() {
  return OnX11();
}

// A menu of its own each time: what is chosen may pump events for minutes, and the person may open
// the next one meanwhile.
void QtTrayMenuHost::PopUp() {
  if (events_ == nullptr) return;
  QMenu menu;
  FillMenu(menu, events_->TrayMenu(),
           [this](const MenuItem& item) { events_->MenuItemChosen(item); });
  menu.exec(QCursor::pos());
}

}  // namespace quillbox
