// The per-user store in the person's native settings.
#pragma once

#include "platform/per_user_store.h"

namespace quillbox {

// Opened for each call. A batch is one sync, so that the file holds all of it or nothing. The file
// and its folder are for their owner alone.
class SettingsPerUserStore : public PerUserStore {
 public:
  std::string Read(std::string_view section, std::string_view key) override;
  void Apply(std::span<const SettingChange> changes) override;
};

}  // namespace quillbox
