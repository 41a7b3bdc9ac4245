// A picture on a form.
#pragma once

#include "forms/control.h"

namespace quillbox {

class PictureField final : public Control {
 public:
  using Control::Control;

  // Full path of the picture's file, in the host's own bytes; empty for the program's own icon.
  const std::string& File() const { return file_; }

  void Show(std::string file) {
    file_ = std::move(file);
    Changed();
  }

 private:
  std::string file_;
};

}  // namespace quillbox
