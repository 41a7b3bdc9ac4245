#include "desktop/desktop_host.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace quillbox {
namespace {

namespace fs = std::filesystem;

fs::path FolderOfExecutable() {
  std::error_code ignored;
  return fs::read_symlink("/proc/self/exe", ignored).parent_path();
}

// Beside the program, else where an installed one has it.
fs::path SharedFolderOf(const fs::path& program) {
  const fs::path installed = (program / QUILLBOX_SHARED_FOLDER).lexically_normal();
  std::error_code ignored;
  const bool isBeside = fs::exists(program / "skin.ini", ignored);
  return isBeside || !fs::is_directory(installed, ignored) ? program : installed;
}

fs::path DataRoot() {
  const char* const data = std::getenv("XDG_DATA_HOME");
  if (data != nullptr && *data == '/') return data;
  const char* const home = std::getenv("HOME");
  return fs::path(home == nullptr ? "/" : home) / ".local/share";
}

std::string UsersDataFolder() {
  const fs::path folder = DataRoot() / "Quillbox";
  std::error_code ignored;
  fs::create_directories(folder, ignored);
  fs::permissions(folder, fs::perms::owner_all, ignored);
  return folder.string();
}

}  // namespace

ApplicationFolder FindApplicationFolder() {
  const fs::path program = FolderOfExecutable();
  const bool portable = ::access(program.c_str(), W_OK) == 0;
  return {program.string(), portable ? program.string() : UsersDataFolder(), '/',
          SharedFolderOf(program).string()};
}

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
