// What the pages of the Options have in common: the mark that something was changed, fields and the
// texts in which they are stored, and the dialog that chooses a file.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "config/settings_store.h"
#include "forms/controls.h"
#include "platform/forms.h"

namespace quillbox {

// Whether something on the Options dialog was changed.
struct ChangeMark {
  bool OptionsChanged = false;  // since the last Apply
  Button ApplyButton{"ApplyButton", "Apply"};

  // What the change event of every field sets: this, and the flag of the field's page.
  void Set(bool& pageChanged) {
    OptionsChanged = true;
    pageChanged = true;
    ApplyButton.SetEnabled(true);
  }
};

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

// The dialog in which the person chooses one file. It remembers for the whole run what was chosen
// last, and offers it the next time.
class OpenDialog {
 public:
  // `chooser` must outlive the dialog.
  explicit OpenDialog(FileChooser& chooser) : chooser_(chooser) {}

  // `question` says what may be chosen, the title and the first folder shown; its File is set here.
  // The full path in the host's own bytes; nothing when the person cancels.
  std::optional<std::string> OpenFileDialog(FileQuestion question);

 private:
  FileChooser& chooser_;
  std::string lastFile_;
};

// The file name after the last separator, "\" or the host's own; the whole text when it has none.
std::string FileNameOf(std::string_view path, char separator);

}  // namespace quillbox
