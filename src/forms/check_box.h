// A tick box.
#pragma once

#include "forms/control.h"

namespace quillbox {

class CheckBox final : public Control {
 public:
  using Control::Control;

  std::function<void()> Clicked;

  bool Ticked() const { return ticked_; }

  // Runs the event when it changes something.
  void SetTicked(bool ticked) {
    if (ticked == ticked_) return;
    ticked_ = ticked;
    Changed();
    if (Clicked) Clicked();
  }

 private:
  bool ticked_ = false;
};

}  // namespace quillbox
