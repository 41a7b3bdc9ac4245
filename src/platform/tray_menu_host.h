// Showing the tray menu.
#pragma once

namespace quillbox {

class TrayMenuHost {
 public:
  virtual ~TrayMenuHost() = default;

  // Brings the program to the foreground, so that a click elsewhere closes its menu. False when the
  // system doesn't allow it.
  virtual bool BringToForeground() = 0;

  // Shows HostEvents::TrayMenu at the cursor. Returns when the menu has closed and the handler of
  // the item that was chosen is done; events are handled meanwhile.
  virtual void PopUp() = 0;
};

}  // namespace quillbox
