// Message boxes and the dialog for choosing a file, in the look of the person's desktop.
#pragma once

#include "platform/forms.h"

namespace quillbox {

class QtMessageBoxes : public MessageBoxes {
 public:
  BoxAnswer Show(const Message& message) override;
};

class QtFileChooser : public FileChooser {
 public:
  std::optional<std::string> Choose(const FileQuestion& question) override;
};

}  // namespace quillbox
