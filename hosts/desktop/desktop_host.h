// The desktop on which a person works: every port of the program on Qt and the system, and where a
// run keeps its files.
#pragma once

#include "config/application_folder.h"
#include "desktop/qt_event_loop.h"
#include "desktop/started_programs.h"
#include "platform/host.h"
#include "qt_tray/qt_tray_host.h"
#include "qt_tray/tooltip_window.h"
#include "qt_tray/tray_menu.h"
#include "qt_windows/qt_boxes.h"
#include "qt_windows/qt_forms.h"
#include "qt_windows/reports_window.h"
#include "sound/sound_player.h"
#include "system/agent_processes.h"
#include "system/autostart_entry.h"
#include "system/settings_file.h"
#include "system/system_files.h"
#include "system/system_surroundings.h"

namespace quillbox {

// The executable's folder for everything when this user can write there; else what the program
// writes goes to the user's data folder, XDG_DATA_HOME/Quillbox, which is made for the user alone.
// Where skin, sounds and manual aren't beside an installed program, they are in share/quillbox.
ApplicationFolder FindApplicationFolder();

// Needs a QApplication that outlives it.
class DesktopHost {
 public:
  // `fileMask`: of the programs that are started for the person.
  DesktopHost(const ApplicationFolder& folder, mode_t fileMask);
  DesktopHost(const DesktopHost&) = delete;
  DesktopHost& operator=(const DesktopHost&) = delete;

  Host Ports();

  // Where events are reported from now on.
  void Connect(HostEvents& events);

 private:
  void LastActs();

  SystemEnvironment variables_;
  SystemFiles disk_;
  SettingsFile store_{disk_};
  SystemClock time_;
  QtTimers timers_;
  QtEventPump events_;
  AgentProcesses agents_;
  QtGrantAsker grants_;
  QtTrayHost tray_;
  QtTrayMenuHost menus_;
  QtTooltipWindow tooltip_;
  QtCursor mouse_{tray_};
  QtMessageBoxes boxes_;
  QtFileChooser chooser_;
  SoundPlayer speaker_;
  LocalSingleInstance instance_;
  SystemNetworkState network_;
  QtAddressOpener opener_;
  ReportsWindow browser_;
  QtForms windows_{&browser_};
  AutostartEntry startUp_;
  QtProgramExit exit_;
};

}  // namespace quillbox
