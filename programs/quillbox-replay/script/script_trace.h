// What comes out of a script: the trace as JSON lines, and the steps that put the state of things
// into it.
#pragma once

#include <iosfwd>

#include "quillbox-replay/script/script_members.h"
#include "simulated/simulated_forms.h"
#include "simulated/simulated_program.h"
#include "simulated/simulated_time.h"
#include "simulated/simulated_trace.h"

namespace quillbox {

// One object on a line, in UTF-8: "at" (simulated time of day), "what", and either the entry's
// parts or its "text".
void WriteTraceEntry(std::ostream& out, const TraceEntry& entry, const SimulatedTime& time);

// A "setting" line for each value of the per-user store.
void ShowSettings(SimulatedProgram& program);

// A "file" line for each file, with its content.
void ShowFiles(SimulatedProgram& program);

// An "item" line for each item of the tray menu, from the top; items of submenus behind their own.
void ShowMenu(SimulatedProgram& program);

// A "control" line for each control of the form; none when it isn't open.
void ShowForm(SimulatedProgram& program, const ScriptForm& form);

}  // namespace quillbox
