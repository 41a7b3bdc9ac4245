// The dialog in which the person chooses one file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/forms.h"

namespace quillbox {

// Paths are the host's own bytes.
struct FileDialogResult {
  std::int16_t FileCount = 0;        // 1, or 0 when cancelled
  std::vector<std::string> Files{};  // the file's name without its folder; none when cancelled
  std::string Folder{};              // with the separator at its end
  bool Cancelled = false;
};

// Remembers for the whole run what was chosen last, and offers it the next time.
class OpenDialog {
 public:
  // `chooser` must outlive the dialog; `separator` is the host's between folders.
  OpenDialog(FileChooser& chooser, char separator) : chooser_(chooser), separator_(separator) {}

  // `question` says what may be chosen, the title and where the person begins; its File is set
  // here.
  FileDialogResult OpenFileDialog(FileQuestion question);

 private:
  FileChooser& chooser_;
  char separator_;
  std::string lastFile_;
};

// What stands behind the last separator, "\" or the host's own; the whole text when it has none.
std::string FileNameOf(std::string_view path, char separator);

}  // namespace quillbox
