// Steps of a script in which the person uses the program's forms.
#pragma once

#include "simulated/script_members.h"
#include "simulated/script_step.h"

namespace quillbox {

// Each reads its members and throws ScriptError when they are wrong. What a person couldn't do then
// either is not done, and the trace tells why.

// Ticks or unticks the box "field", or writes into the text field, as "to" says.
ScriptAction ReadSet(ScriptMembers& members);

// Chooses the entry "item" of the list "field".
ScriptAction ReadSelect(ScriptMembers& members);

// Presses "button".
ScriptAction ReadPress(ScriptMembers& members);

// Closes the form by its close box.
ScriptAction ReadCloseBox(ScriptMembers& members);

// What the person chooses when next asked for a file: "file", or none.
ScriptAction ReadChoose(ScriptMembers& members);

// What comes of it when a grant is asked for next: its "name" or a "problem".
ScriptAction ReadGrant(ScriptMembers& members);

}  // namespace quillbox
