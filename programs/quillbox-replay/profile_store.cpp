#include "quillbox-replay/profile_store.h"

#include "config/profile_file.h"

namespace quillbox {

std::string ProfileStore::Read(std::string_view section, std::string_view key) {
  return ReadProfileValue(text_, section, key).substr(0, kLongestProfileValue);
}

bool ProfileStore::Apply(std::span<const SettingChange> changes) {
  for (const SettingChange& change : changes) {
    text_ = WithProfileValue(std::move(text_), change.Section, change.Key,
                             change.Value.value_or(std::string()));
  }
  return true;
}

}  // namespace quillbox
