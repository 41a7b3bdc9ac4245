// A button.
#pragma once

#include "forms/control.h"

namespace quillbox {

class Button final : public Control {
 public:
  using Control::Control;

  std::function<void()> Clicked;

  // Runs the event; nothing while the button is disabled.
  void Click() {
    if (Enabled() && Clicked) Clicked();
  }
};

}  // namespace quillbox
