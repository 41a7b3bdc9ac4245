// A sentence that the form says to the person.
#pragma once

#include <string>
#include <utility>

#include "forms/control.h"

namespace quillbox {

class NoteField final : public Control {
 public:
  using Control::Control;

  // Code page; empty while there is nothing to say.
  const std::string& Text() const { return text_; }

  void Say(std::string text) {
    text_ = std::move(text);
    Changed();
  }

 private:
  std::string text_;
};

}  // namespace quillbox
