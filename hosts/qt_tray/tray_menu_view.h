// The tray menu as a popup.
#pragma once

#include <QMenu>
#include <functional>

#include "platform/tray.h"

namespace quillbox {

// Appends these items. `onChosen` gets a copy of the item that the person chooses. An item's
// fixed name is its action's object name.
void FillMenu(QMenu& menu, const Menu& items, const std::function<void(const MenuItem&)>& onChosen);

}  // namespace quillbox
