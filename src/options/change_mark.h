// That something on the Options dialog was changed.
#pragma once

#include "forms/controls.h"

namespace quillbox {

struct ChangeMark {
  bool OptionsChanged = false;  // since the last Apply
  Button ApplyButton{"ApplyButton", "Apply"};

  // What the change event of every field sets: this, and the flag of the field's page.
  void Set(bool& pageChanged) {
    OptionsChanged = true;
    pageChanged = true;
    ApplyButton.SetEnabled(true);
  }
};

}  // namespace quillbox
