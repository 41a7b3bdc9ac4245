#include "desktop/autostart_entry.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "config/atomic_write.h"
#include "desktop/desktop_entry.h"

namespace quillbox {
namespace {

namespace fs = std::filesystem;

fs::path AutostartFolder() {
  const char* const config = std::getenv("XDG_CONFIG_HOME");
  if (config != nullptr && *config == '/') return fs::path(config) / "autostart";
  const char* const home = std::getenv("HOME");
  return fs::path(home == nullptr ? "/" : home) / ".config/autostart";
}

std::string EntryFile() {
  return (AutostartFolder() / "quillbox.desktop").string();
}

}  // namespace

bool AutostartEntry::Present() {
  return StartsSomething(files_.Read(EntryFile()).value_or(""));
}

void AutostartEntry::Make() {
  std::error_code ignored;
  fs::create_directories(AutostartFolder(), ignored);
  WriteAtomically(files_, EntryFile(), AutostartText(folder_.ProgramFile("quillbox")));
}

void AutostartEntry::Remove() {
  files_.Remove(EntryFile());
}

}  // namespace quillbox
