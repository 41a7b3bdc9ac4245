// A settings file's text as a store, until it is saved.
#pragma once

#include <string>
#include <utility>

#include "platform/per_user_store.h"

namespace quillbox {

// Reads and writes as the program does with a settings file.
class ProfileStore final : public PerUserStore {
 public:
  explicit ProfileStore(std::string text) : text_(std::move(text)) {}

  std::string Read(std::string_view section, std::string_view key) override;
  bool Apply(std::span<const SettingChange> changes) override;

  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

}  // namespace quillbox
