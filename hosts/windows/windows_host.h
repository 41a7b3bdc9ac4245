// The Windows desktop on which a person works: every port of the program on plain Win32.
#pragma once

#include "config/application_folder.h"
#include "platform/host.h"
#include "system/system_files.h"
#include "system/system_surroundings.h"
#include "windows/registry_store.h"
#include "windows/windows_agents.h"
#include "windows/windows_loop.h"
#include "windows/windows_process.h"
#include "windows/windows_surroundings.h"
#include "windows/windows_tooltip.h"
#include "windows/windows_tray.h"
#include "windows_dialogs/windows_boxes.h"
#include "windows_dialogs/windows_forms.h"

namespace quillbox {

class WindowsHost {
 public:
  explicit WindowsHost(const ApplicationFolder& folder)
      : folder_(folder),
        agents_(folder.ProgramFile("dl.exe")),
        grants_(folder.ProgramFile("dl.exe"), timers_),
        speaker_(folder, disk_),
        opener_(folder),
        exit_([this] { agents_.EndAll(); }) {}
  WindowsHost(const WindowsHost&) = delete;
  WindowsHost& operator=(const WindowsHost&) = delete;

  Host Ports() {
    return {store_,   variables_, disk_,    time_,   timers_,  events_,  agents_,  grants_,
            tray_,    tray_,      tooltip_, mouse_,  boxes_,   windows_, chooser_, windows_,
            speaker_, instance_,  network_, opener_, startUp_, exit_};
  }

  // Where events are reported from now on.
  void Connect(HostEvents& events) { tray_.Connect(events); }

  // Handles events until the program ends itself.
  int Run() { return events_.Run(); }

 private:
  const ApplicationFolder folder_;
  SystemEnvironment variables_;
  SystemFiles disk_;
  RegistryStore store_;
  SystemClock time_;
  WindowsTimers timers_;
  WindowsEventPump events_;
  WindowsAgents agents_;
  WindowsGrantAsker grants_;
  WindowsTray tray_;
  WindowsTooltip tooltip_{tray_};
  WindowsCursor mouse_;
  WindowsBoxes boxes_;
  WindowsFileChooser chooser_;
  WindowsSounds speaker_;
  WindowsSingleInstance instance_;
  SystemNetworkState network_;
  WindowsAddressOpener opener_;
  WindowsForms windows_{opener_};
  RunValue startUp_{folder_};
  WindowsProgramExit exit_;
};

}  // namespace quillbox
