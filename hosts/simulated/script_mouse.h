// Steps of a script in which the person uses the mouse at the tray icon.
#pragma once

#include "simulated/script_members.h"
#include "simulated/script_step.h"

namespace quillbox {

// Each reads its members and throws ScriptError when they are wrong.

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
