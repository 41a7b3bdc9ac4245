// The tray menu on the screen.
#pragma once

#include <QMenu>
#include <functional>

#include "platform/menu.h"

namespace quillbox {

// Fills the menu with these items in place of what it holds. `onChosen` gets a copy of the item
// that the person chooses. An item's designed name is its action's object name.
void FillMenu(QMenu& menu, const Menu& items, const std::function<void(const MenuItem&)>& onChosen);

}  // namespace quillbox
