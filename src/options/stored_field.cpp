#include "options/stored_field.h"

#include "region/failure_rule.h"

namespace quillbox {

void TickIfTrue(CheckBox& box, const SettingsStore& store, const SettingKey& key) {
  if (store.ReadSetting(key) == kTrue) box.SetTicked(true);
}

void AddAll(ListField& list, std::span<const std::string_view> items) {
  for (const std::string_view item : items) list.Add(std::string(item));
}

void SelectEntry(ListField& list, std::string_view text) {
  if (!list.SelectText(text)) throw StepFailed{};
}

void SelectStored(ListField& list, SettingsStore& store, const SettingKey& key,
                  std::string_view whenEmpty) {
  const std::string stored = store.ReadSetting(key);
  if (!stored.empty()) return SelectEntry(list, stored);
  SelectEntry(list, whenEmpty);
  store.WriteSetting(key, whenEmpty);
}

}  // namespace quillbox
