#include "windows/windows_host.h"

namespace quillbox {

WindowsHost::WindowsHost(const ApplicationFolder& folder)
    : folder_(folder),
      agents_(folder.ProgramFile("dl.exe")),
      grants_(folder.ProgramFile("dl.exe"), timers_),
      speaker_(folder, disk_),
      opener_(folder),
      exit_([this] { agents_.EndAll(); }) {}

Host WindowsHost::Ports() {
  return {store_,   variables_, disk_,    time_,   timers_,  events_,  agents_,  grants_,
          tray_,    tray_,      tooltip_, mouse_,  boxes_,   windows_, chooser_, windows_,
          speaker_, instance_,  network_, opener_, startUp_, exit_};
}

}  // namespace quillbox
