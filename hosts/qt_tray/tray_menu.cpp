#include "qt_tray/tray_menu.h"

#include <QCursor>

#include "qt_base/unicode_text.h"
#include "qt_base/window_system.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

using OnChosen = std::function<void(const MenuItem&)>;

// "&" underlines a letter in Qt's captions.
QString CaptionOf(const MenuItem& item) {
  return ToUnicode(Elided(item.Caption)).replace("&", "&&");
}

// The whole of a caption that is shown without its middle.
QString TipOf(const MenuItem& item) {
  return Elided(item.Caption) == item.Caption ? QString() : ToUnicode(item.Caption);
}

void AddItem(QMenu& menu, const MenuItem& item, const OnChosen& onChosen) {
  QAction* const action = menu.addAction(CaptionOf(item));
  if (item.Default) menu.setDefaultAction(action);
  action->setEnabled(item.Enabled);
  action->setToolTip(TipOf(item));
  action->setObjectName(ToUnicode(item.Name));
  QObject::connect(action, &QAction::triggered, [item, onChosen] { onChosen(item); });
}

void AddSubmenu(QMenu& menu, const MenuItem& item, const OnChosen& onChosen) {
  auto* const submenu = new QMenu(CaptionOf(item), &menu);
  submenu->setObjectName(ToUnicode(item.Name));
  submenu->setEnabled(item.Enabled);
  FillMenu(*submenu, item.Items, onChosen);
  menu.addMenu(submenu)->setToolTip(TipOf(item));
}

}  // namespace

void FillMenu(QMenu& menu, const Menu& items, const OnChosen& onChosen) {
  menu.setToolTipsVisible(true);
  for (const MenuItem& item : items) {
    if (item.Submenu) {
      AddSubmenu(menu, item, onChosen);
    } else if (item.Separator) {
      menu.addSeparator();
    } else {
      AddItem(menu, item, onChosen);
    }
  }
}

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
