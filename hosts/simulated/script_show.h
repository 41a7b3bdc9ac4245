// Steps of a script that put the state of things into the trace.
#pragma once

#include "simulated/script_forms.h"
#include "simulated/simulated_program.h"

namespace quillbox {

// A "setting" line for each value of the per-user store.
void ShowSettings(SimulatedProgram& program);

// A "file" line for each file, with its content.
void ShowFiles(SimulatedProgram& program);

// An "item" line for each item of the tray menu, from the top; items of submenus behind their own.
void ShowMenu(SimulatedProgram& program);

// A "control" line for each control of the form; none when it isn't open.
void ShowForm(SimulatedProgram& program, const ScriptForm& form);

}  // namespace quillbox
