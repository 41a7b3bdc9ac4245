#include "desktop/desktop_host.h"

namespace quillbox {

DesktopHost::DesktopHost(const ApplicationFolder& folder)
    : agents_(folder.ProgramFile("dl")), exit_([this] { LastActs(); }) {}

Host DesktopHost::Ports() {
  return {store_, variables_, disk_,    time_,     timers_,  events_, agents_, tray_,
          boxes_, windows_,   speaker_, instance_, network_, opener_, exit_};
}

void DesktopHost::Connect(HostEvents& events) {
  tray_.Connect(events);
  instance_.Connect(events);
}

void DesktopHost::LastActs() {
  agents_.EndAll();
  instance_.Close();
}

}  // namespace quillbox
