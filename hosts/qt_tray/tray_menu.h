// The tray menu as a popup of our own, for trays that leave the menu to the program.
#pragma once

#include <QMenu>
#include <functional>

#include "platform/host.h"
#include "platform/tray.h"

namespace quillbox {

// Appends these items. `onChosen` gets a copy of the item that the person chooses. An item's
// fixed name is its action's object name.
void FillMenu(QMenu& menu, const Menu& items, const std::function<void(const MenuItem&)>& onChosen);

class QtTrayMenuHost : public TrayMenuHost {
 public:
  // Where the menu comes from and what is chosen is reported; before this none is shown.
  void Connect(HostEvents& events) { events_ = &events; }

  bool BringToForeground() override;
  void PopUp() override;

 private:
  HostEvents* events_ = nullptr;
};

}  // namespace quillbox
