#include "qt_tray/tray_menu_view.h"

#include "qt_base/unicode_text.h"

namespace quillbox {
namespace {

using OnChosen = std::function<void(const MenuItem&)>;

// "&" underlines a letter in Qt's captions.
QString CaptionOf(const MenuItem& item) {
  return ToUnicode(item.Caption).replace("&", "&&");
}

void AddItem(QMenu& menu, const MenuItem& item, const OnChosen& onChosen) {
  QAction* const action = menu.addAction(CaptionOf(item));
  if (item.Default) menu.setDefaultAction(action);
  action->setEnabled(item.Enabled);
  action->setObjectName(ToUnicode(item.Name));
  QObject::connect(action, &QAction::triggered, [item, onChosen] { onChosen(item); });
}

void AddSubmenu(QMenu& menu, const MenuItem& item, const OnChosen& onChosen) {
  auto* const submenu = new QMenu(CaptionOf(item), &menu);
  submenu->setObjectName(ToUnicode(item.Name));
  submenu->setEnabled(item.Enabled);
  FillMenu(*submenu, item.Items, onChosen);
  menu.addMenu(submenu);
}

}  // namespace

void FillMenu(QMenu& menu, const Menu& items, const OnChosen& onChosen) {
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

}  // namespace quillbox
