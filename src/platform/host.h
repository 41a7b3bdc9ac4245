// All that the program asks of its host, in one place.
#pragma once

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
class TrayHost;
class TrayMenuHost;

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

}  // namespace quillbox
