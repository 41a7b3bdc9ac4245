#include "desktop/desktop_host.h"

namespace quillbox {

DesktopHost::DesktopHost(const ApplicationFolder& folder, mode_t fileMask)
    : agents_(folder.ProgramFile("dl")),
      grants_(folder.ProgramFile("dl"), fileMask),
      speaker_(folder, disk_),
      opener_(folder, fileMask),
      browser_(folder.ProgramFile("quillbox-report-view"), opener_),
      startUp_(disk_, folder),
      exit_([this] { LastActs(); }) {}

Host DesktopHost::Ports() {
  return {store_,   variables_, disk_,    time_,   timers_,  events_,  agents_,  grants_,
          tray_,    menus_,     tooltip_, mouse_,  boxes_,   windows_, chooser_, browser_,
          speaker_, instance_,  network_, opener_, startUp_, exit_};
}

void DesktopHost::Connect(HostEvents& events) {
  tray_.Connect(events);
  menus_.Connect(events);
  instance_.Connect(events);
}

void DesktopHost::LastActs() {
  agents_.EndAll();
  instance_.Close();
}

}  // namespace quillbox
