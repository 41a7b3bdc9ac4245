// Every persistent value of the program: a text under a section and a key.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "config/application_folder.h"
#include "config/setting_keys.h"
#include "platform/process.h"
#include "platform/storage.h"

namespace quillbox {

// Several changes that belong together.
class SettingBatch {
 public:
  SettingBatch& Write(const SettingKey& key, std::string_view value);
  SettingBatch& Delete(const SettingKey& key);
  std::span<const SettingChange> Changes() const { return changes_; }

 private:
  std::vector<SettingChange> changes_;
};

// A missing and an empty value can't be told apart: both read as the empty text. Each call goes
// to the back end. A write that failed leaves the old value, and the person is not told.
class SettingsStore {
 public:
  // `settingsProfile` chooses the back end at every call: the host's per-user store while it is
  // empty, else the file of that name (as UTF-8) and ".ini" in the data folder. All arguments must
  // outlive the store.
  SettingsStore(PerUserStore& userStore, Files& files, const ApplicationFolder& folder,
                const std::string& settingsProfile);

  // In file mode at most kLongestProfileValue characters.
  std::string ReadSetting(const SettingKey& key) const;

  void WriteSetting(const SettingKey& key, std::string_view value);

  // In file mode the line "KEY=" stays.
  void DeleteSetting(const SettingKey& key);

  // All or nothing, in one atomic write. Whether it was kept.
  bool WriteBatch(const SettingBatch& batch);

 private:
  bool Apply(std::span<const SettingChange> changes);
  std::string SettingsFile() const;

  PerUserStore& userStore_;
  Files& files_;
  const ApplicationFolder& folder_;
  const std::string& settingsProfile_;
};

// Writes a probe into `store`, which must be in per-user mode, and reads it back. The settings
// profile to use from now on: empty when the store keeps what it is given, else the user's name
// from the environment, or "Default" when that is empty or no file could be named so.
std::string ChooseSettingsProfile(SettingsStore& store, Environment& environment);

}  // namespace quillbox
