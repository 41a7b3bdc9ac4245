// Message boxes and the dialog that chooses a file.
#pragma once

#include "platform/forms.h"

namespace quillbox {

class WindowsBoxes : public MessageBoxes {
 public:
  BoxAnswer Show(const Message& message) override;
};

class WindowsFileChooser : public FileChooser {
 public:
  std::optional<std::string> Choose(const FileQuestion& question) override;
};

}  // namespace quillbox
