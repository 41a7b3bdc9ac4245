#include "desktop/desktop_host.h"

namespace quillbox {

DesktopHost::DesktopHost(const ApplicationFolder& folder)
    : agents_(folder.ProgramFile("dl")),
      speaker_(folder, disk_),
      opener_(folder),
      exit_([this] { LastActs(); }) {}

Host DesktopHost::Ports() {
  return {store_,   variables_, disk_,  time_,    timers_,  events_,   agents_,  tray_,   menus_,
          tooltip_, mouse_,     boxes_, windows_, speaker_, instance_, network_, opener_, exit_};
}

void DesktopHost::Connect(HostEvents& events, const FormModels& models) {
  windows_.Connect(models);
  tray_.Connect(events);
  menus_.Connect(events);
  instance_.Connect(events);
}

void DesktopHost::LastActs() {
  agents_.EndAll();
  instance_.Close();
}

}  // namespace quillbox
