// A line of text that the person writes.
#pragma once

#include "forms/control.h"

namespace quillbox {

class TextField final : public Control {
 public:
  enum class Echo { kPlain, kStars };

  // With kStars every character shows as "*".
  TextField(std::string name, std::string caption, Echo echo = Echo::kPlain)
      : Control(std::move(name), std::move(caption)), echo_(echo) {}

  std::function<void()> TextChanged;

  Echo Shows() const { return echo_; }

  // Code page.
  const std::string& Text() const { return text_; }

  // Runs the event when it changes something.
  void SetText(std::string text) {
    if (text == text_) return;
    text_ = std::move(text);
    Changed();
    if (TextChanged) TextChanged();
  }

 private:
  Echo echo_;
  std::string text_;
};

}  // namespace quillbox
