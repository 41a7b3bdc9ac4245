// Settings and files in memory: nothing of the machine is touched.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "config/settings_store.h"
#include "platform/storage.h"

namespace quillbox {

// Settings; sections and keys keep the case in which they were written first.
class MemoryStore final : public PerUserStore {
 public:
  struct Setting {
    std::string Key;
    std::string Value;
  };
  struct Section {
    std::string Name;
    std::map<std::string, Setting> Settings;  // by the key in lower case
  };

  std::string Read(std::string_view section, std::string_view key) override;
  bool Apply(std::span<const SettingChange> changes) override;

  void Write(std::string_view section, std::string_view key, std::string value);

  // By their names in lower case.
  const std::map<std::string, Section>& Sections() const { return sections_; }

 private:
  std::map<std::string, Section> sections_;
};

// The text of a settings file, read and written as the program does with the file.
class ProfileStore final : public PerUserStore {
 public:
  explicit ProfileStore(std::string text) : text_(std::move(text)) {}

  std::string Read(std::string_view section, std::string_view key) override;
  bool Apply(std::span<const SettingChange> changes) override;

  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

// Files that are only read.
class MemoryFiles final : public Files {
 public:
  // `content` must outlive this object.
  void Put(const std::string& path, std::string_view content) { files_[path] = content; }

  bool Exists(const std::string& path) override { return files_.contains(path); }

  std::optional<std::uint64_t> Size(const std::string& path) override {
    const auto found = files_.find(path);
    if (found == files_.end()) return std::nullopt;
    return found->second.size();
  }

  std::optional<std::string> Read(const std::string& path) override {
    const auto found = files_.find(path);
    if (found == files_.end()) return std::nullopt;
    return std::string(found->second);
  }

  // Like a disk that can't be written.
  bool WriteNew(const std::string&, const std::string&) override { return false; }
  bool Flush(const std::string&) override { return false; }
  bool Rename(const std::string&, const std::string&) override { return false; }
  bool Remove(const std::string& path) override { return !Exists(path); }
  std::vector<std::string> List(const std::string&, const std::string&) override { return {}; }

 private:
  std::map<std::string, std::string_view> files_;
};

// The program's way to settings, on `settings` alone, which must outlive it.
struct StoreOnSettings {
  explicit StoreOnSettings(PerUserStore& settings) : Store(settings, files_, folder_, noProfile_) {}
  StoreOnSettings(const StoreOnSettings&) = delete;
  StoreOnSettings& operator=(const StoreOnSettings&) = delete;

 private:
  MemoryFiles files_;  // none
  const ApplicationFolder folder_{"", "", '/'};
  const std::string noProfile_;

 public:
  SettingsStore Store;
};

}  // namespace quillbox
