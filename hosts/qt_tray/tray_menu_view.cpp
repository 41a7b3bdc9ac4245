#include "qt_tray/tray_menu_view.h"

#include "qt_base/unicode_text.h"
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

}  // namespace quillbox
