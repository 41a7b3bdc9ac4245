// Between the fields of a page and the texts in which they are stored.
#pragma once

#include <span>
#include <string_view>

#include "config/settings_store.h"
#include "forms/controls.h"

namespace quillbox {

// A setting that isn't "True" leaves the box as it is.
void TickIfTrue(CheckBox& box, const SettingsStore& store, const SettingKey& key);

inline std::string_view StoredText(const CheckBox& box) {
  return BooleanText(box.Ticked());
}

void AddAll(ListField& list, std::span<const std::string_view> items);

// Throws StepFailed when `text` is no entry.
void SelectEntry(ListField& list, std::string_view text);

// Selects the stored text; when none is stored `whenEmpty`, which is then stored. Throws StepFailed
// when the stored text is no entry.
void SelectStored(ListField& list, SettingsStore& store, const SettingKey& key,
                  std::string_view whenEmpty);

}  // namespace quillbox
