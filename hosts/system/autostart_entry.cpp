#include "system/autostart_entry.h"

#include <filesystem>
#include <system_error>

#include "config/atomic_write.h"
#include "system/desktop_entry.h"
#include "system/system_environment.h"

namespace quillbox {
namespace {

namespace fs = std::filesystem;

fs::path AutostartFolder() {
  return fs::path(ConfigFolder()) / "autostart";
}

std::string EntryFile() {
  return (AutostartFolder() / "quillbox.desktop").string();
}

}  // namespace

bool AutostartEntry::Present() {
  return StartsSomething(files_.Read(EntryFile()).value_or(""));
}

void AutostartEntry::Make() {
  if (ConfigFolder().empty()) return;
  std::error_code ignored;
  fs::create_directories(AutostartFolder(), ignored);
  WriteAtomically(files_, EntryFile(), AutostartText(folder_.ProgramFile("quillbox")));
}

void AutostartEntry::Remove() {
  files_.Remove(EntryFile());
}

}  // namespace quillbox
