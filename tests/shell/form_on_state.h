// The form on a state that the test owns and may change, as the Options do.
#pragma once

#include "shell/form1.h"
#include "simulated/context_on_state.h"
#include "tray/tray_menu.h"

namespace quillbox {

class FormOnState : public ContextOnState {
 protected:
  FormOnState() {
    BuildTraySubmenus(program_);
    host_.Connect(form_);
  }

  Form1 form_{program_};
};

}  // namespace quillbox
