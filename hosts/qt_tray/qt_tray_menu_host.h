// The tray menu as a popup of our own, for trays that leave the menu to the program.
#pragma once

#include "platform/host.h"
#include "platform/tray.h"

namespace quillbox {

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
