// What a host tells the program.
#pragma once

#include "platform/menu.h"

namespace quillbox {

// All calls come on the program's one thread, from the event pump.
// What the mouse did at the tray icon, as the codes that the tray was designed to report.
enum class TrayMouse {
  kMove = 512,
  kLeftDown = 513,
  kLeftDoubleClick = 515,
  kRightDown = 516,
};

class HostEvents {
 public:
  virtual ~HostEvents() = default;

  // A tray has come that has no icon of ours: at first appearance of a tray, or after it restarted.
  virtual void TaskbarCreated() = 0;

  // The program was started a second time.
  virtual void QuillboxLaunched() = 0;

  // A double click is reported as a left button down followed by the double click.
  virtual void Form_MouseMove(TrayMouse code) = 0;

  // The menu to show at the icon, as it is now. The reference lives until the next event.
  virtual const Menu& TrayMenu() = 0;

  // The person chose this item of the tray menu.
  virtual void MenuItemChosen(const MenuItem& item) = 0;
};

}  // namespace quillbox
