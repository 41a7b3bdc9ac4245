// The ways to use the program.
#pragma once

#include "quillbox-replay/command_line.h"

namespace quillbox {

// Each gives the program's exit code, or throws UsageError before it has written anything.

// Evaluates saved reports and tells in words what comes of them.
int EvaluateCommand(Arguments arguments);

// Makes the page of a saved report.
int ReportPageCommand(Arguments arguments);

// Runs the whole program on a simulated host as a script tells, and writes what it did.
int ScriptCommand(Arguments arguments);

// Answers requests from standard input on standard output.
int BatchCommand(Arguments arguments);

}  // namespace quillbox
