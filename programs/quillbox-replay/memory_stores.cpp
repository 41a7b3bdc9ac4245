#include "quillbox-replay/memory_stores.h"

#include "config/profile_file.h"
#include "text/code_page.h"

namespace quillbox {

std::string MemoryStore::Read(std::string_view section, std::string_view key) {
  const auto foundSection = sections_.find(LowerCase(section));
  if (foundSection == sections_.end()) return {};
  const auto& settings = foundSection->second.Settings;
  const auto found = settings.find(LowerCase(key));
  return found == settings.end() ? std::string() : found->second.Value;
}

bool MemoryStore::Apply(std::span<const SettingChange> changes) {
  for (const SettingChange& change : changes) {
    if (change.Value) {
      Write(change.Section, change.Key, *change.Value);
    } else if (const auto found = sections_.find(LowerCase(change.Section));
               found != sections_.end()) {
      found->second.Settings.erase(LowerCase(change.Key));
    }
  }
  return true;
}

void MemoryStore::Write(std::string_view section, std::string_view key, std::string value) {
  Section& target =
      sections_.try_emplace(LowerCase(section), Section{std::string(section), {}}).first->second;
  Setting& setting =
      target.Settings.try_emplace(LowerCase(key), Setting{std::string(key), {}}).first->second;
  setting.Value = std::move(value);
}

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
