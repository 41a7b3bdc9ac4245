// The program's forms as scripts name them, and their controls.
#pragma once

#include <string>
#include <vector>

#include "forms/control.h"
#include "platform/forms.h"
#include "simulated/script_members.h"
#include "simulated/simulated_forms.h"

namespace quillbox {

struct ScriptForm {
  FormName Form;
  std::string Name;
};

// The member "form".
ScriptForm ReadForm(ScriptMembers& members);

bool IsLoaded(const SimulatedForms& forms, FormName form);

// In the order in which they stand; those of all pages. None when the form isn't loaded. They live
// as long as the form.
std::vector<Control*> ControlsOf(const SimulatedForms& forms, FormName form);

// What the control shows, "True" or "False" for a tick box; empty for a button. Passwords and
// addresses of accounts are "...".
std::string ControlValue(const Control& control);

}  // namespace quillbox
