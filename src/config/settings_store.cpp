#include "config/settings_store.h"

#include <algorithm>
#include <array>

#include "config/profile_file.h"
#include "text/code_page.h"

namespace quillbox {
namespace {

constexpr std::string_view kDefaultProfile = "Default";

// In bytes of UTF-8: leaves room for ".ini" and the suffixes of atomic writes on any file system.
constexpr std::size_t kLongestProfileName = 200;

SettingChange Change(const SettingKey& key, std::optional<std::string> value) {
  return {std::string(key.Section), std::string(key.Key), std::move(value)};
}

// Refused on any host, so that a folder can move between them.
bool FitsFileName(char c) {
  const char32_t point = ToCodePoint(static_cast<unsigned char>(c));
  const bool isControl = point < 0x20 || (point >= 0x7F && point < 0xA0);
  return !isControl && std::string_view("/\\:*?\"'<>|").find(c) == std::string_view::npos;
}

bool IsFileName(std::string_view name) {
  return !name.empty() && !name.ends_with('.') && !name.ends_with(' ') &&
         ToUtf8(name).size() <= kLongestProfileName &&
         std::all_of(name.begin(), name.end(), FitsFileName);
}

}  // namespace

SettingBatch& SettingBatch::Write(const SettingKey& key, std::string_view value) {
  changes_.push_back(Change(key, std::string(value)));
  return *this;
}

SettingBatch& SettingBatch::Delete(const SettingKey& key) {
  changes_.push_back(Change(key, std::nullopt));
  return *this;
}

SettingsStore::SettingsStore(PerUserStore& userStore, Files& files, const ApplicationFolder& folder,
                             const std::string& settingsProfile)
    : userStore_(userStore), files_(files), folder_(folder), settingsProfile_(settingsProfile) {}

std::string SettingsStore::ReadSetting(const SettingKey& key) const {
  return settingsProfile_.empty() ? userStore_.Read(key.Section, key.Key)
                                  : IniRead(files_, key.Section, key.Key, SettingsFile());
}

void SettingsStore::WriteSetting(const SettingKey& key, std::string_view value) {
  Apply(std::array{Change(key, std::string(value))});
}

void SettingsStore::DeleteSetting(const SettingKey& key) {
  Apply(std::array{Change(key, std::nullopt)});
}

bool SettingsStore::WriteBatch(const SettingBatch& batch) {
  return Apply(batch.Changes());
}

bool SettingsStore::Apply(std::span<const SettingChange> changes) {
  if (changes.empty()) return true;
  return settingsProfile_.empty() ? userStore_.Apply(changes)
                                  : IniWrite(files_, changes, SettingsFile());
}

std::string SettingsStore::SettingsFile() const {
  return folder_.DataFile(ToUtf8(settingsProfile_) + ".ini");
}

std::string ChooseSettingsProfile(SettingsStore& store, Environment& environment) {
  store.WriteSetting(kRegTest, kRegTestValue);
  if (store.ReadSetting(kRegTest) == kRegTestValue) return {};
  const std::string name = environment.Variable("Username");
  return IsFileName(name) ? name : std::string(kDefaultProfile);
}

}  // namespace quillbox
