// The store of texts that the host keeps for each of its users.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillbox {

// One change in a batch; no value means that the key goes.
struct SettingChange {
  std::string Section;
  std::string Key;
  std::optional<std::string> Value;
};

// Sections, keys and values may hold any characters of the code page. Sections and keys are matched
// without regard to case. A store that could not keep a value reads back what it has on disk.
class PerUserStore {
 public:
  virtual ~PerUserStore() = default;

  // The value, or the empty text when there is none.
  virtual std::string Read(std::string_view section, std::string_view key) = 0;

  // All changes, in their order, in one atomic write: whatever happens meanwhile, afterwards either
  // all or none of them are there. Whether they are.
  virtual bool Apply(std::span<const SettingChange> changes) = 0;
};

}  // namespace quillbox
