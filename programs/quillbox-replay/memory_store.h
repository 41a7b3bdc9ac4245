// A per-user store in memory.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/per_user_store.h"

namespace quillbox {

// Sections and keys keep the case in which they were written first.
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

}  // namespace quillbox
