// Steps of a script in which the person uses the program: its forms, and the tray icon.
#pragma once

#include "quillbox-replay/script/script_members.h"
#include "quillbox-replay/script/script_step.h"

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

// The mouse at the tray icon.

// The cursor moves over the icon, to "x" and "y".
ScriptAction ReadHover(ScriptMembers& members);

// The cursor moves off the icon, which the program is not told, to "x" and "y".
ScriptAction ReadLeave(ScriptMembers& members);

// The left button goes down once, and the second time of a double click.
ScriptAction ReadLeft(ScriptMembers& members);
ScriptAction ReadDouble(ScriptMembers& members);

// The right button opens the menu, in which "item", if there is one, is chosen "after" a while.
ScriptAction ReadRight(ScriptMembers& members);

}  // namespace quillbox
