// The desktop's own dialog for choosing a file.
#pragma once

#include "platform/forms.h"

namespace quillbox {

class QtFileChooser : public FileChooser {
 public:
  std::optional<std::string> Choose(const FileQuestion& question) override;
};

}  // namespace quillbox
