// A drop-down list whose shown text can be one that is no entry.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "forms/control.h"

namespace quillbox {

// What a person types into it has no effect: only choosing an entry runs the event. Entries and
// shown text are names of files, in the host's own bytes.
class EditableList final : public Control {
 public:
  using Control::Control;

  std::function<void()> Clicked;

  const std::vector<std::string>& Items() const { return items_; }
  const std::string& Text() const { return text_; }

  void Add(std::string item) {
    items_.push_back(std::move(item));
    Changed();
  }

  // Shows `text` without running the event.
  void ShowText(std::string text) {
    text_ = std::move(text);
    Changed();
  }

  // The person chose the entry `index`, which must be one.
  void Select(std::size_t index) {
    ShowText(items_.at(index));
    if (Clicked) Clicked();
  }

 private:
  std::vector<std::string> items_;
  std::string text_;
};

}  // namespace quillbox
