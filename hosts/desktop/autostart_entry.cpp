#include "desktop/autostart_entry.h"

namespace quillbox {

bool AutostartEntry::Present() {
  return false;
}

void AutostartEntry::Make() {
  static_cast<void>(files_);
}

void AutostartEntry::Remove() {
  static_cast<void>(folder_);
}

}  // namespace quillbox
