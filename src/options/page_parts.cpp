#include "options/page_parts.h"

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

std::optional<std::string> OpenDialog::OpenFileDialog(FileQuestion question) {
  question.File = lastFile_;
  std::optional<std::string> chosen = chooser_.Choose(question);
  if (chosen) lastFile_ = *chosen;
  return chosen;
}

std::string FileNameOf(std::string_view path, char separator) {
  const char separators[] = {'\\', separator};
  return std::string(path.substr(path.find_last_of(std::string_view(separators, 2)) + 1));
}

}  // namespace quillbox
