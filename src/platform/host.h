// All that the program asks of its host, in one place; and what the host tells the program.
#pragma once

#include "platform/tray.h"

namespace quillbox {

class AddressOpener;
class AgentRunner;
class Clock;
class Cursor;
class Environment;
class EventPump;
class FileChooser;
class Files;
class Forms;
class GrantAsker;
class MessageBoxes;
class NetworkState;
class PerUserStore;
class ProgramExit;
class ReportBrowser;
class SingleInstance;
class Sounds;
class StartUpEntry;
class Timers;
class TooltipWindow;

struct Host {
  PerUserStore& Store;
  Environment& Variables;
  Files& Disk;
  Clock& Time;
  Timers& TimerSource;
  EventPump& Events;
  AgentRunner& Agents;
  GrantAsker& Grants;
  TrayHost& Tray;
  TrayMenuHost& TrayMenus;
  TooltipWindow& Tooltip;
  Cursor& Mouse;
  MessageBoxes& Boxes;
  Forms& Windows;
  FileChooser& Chooser;
  ReportBrowser& Browser;
  Sounds& Speaker;
  SingleInstance& Instance;
  NetworkState& Network;
  AddressOpener& Opener;
  StartUpEntry& StartUp;
  ProgramExit& Exit;
};

// What the mouse did at the tray icon, by the fixed codes of the tray.
enum class TrayMouse {
  kMove = 512,
  kLeftDown = 513,
  kLeftDoubleClick = 515,
  kRightDown = 516,
};

// What a host tells the program. All calls come on the program's one thread, from the event pump.
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
