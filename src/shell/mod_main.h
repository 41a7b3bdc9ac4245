// The entry point: loads the state, puts the icon into the tray and starts what the settings ask
// for.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "shell/form1.h"
#include "state/program_context.h"

namespace quillbox {

// Runs once. Returns when the start is done, or ends the process if another instance runs. A step
// that fails is skipped.
void Main(const ProgramContext& program, Form1& form);

// The value of Runs after one more start: the number in `runs` plus 1, or nothing when it can't be
// counted on (it isn't a whole number, or the sum leaves 16 signed bits).
std::optional<std::string> NextRunCount(std::string_view runs, const RegionalSettings& region);

}  // namespace quillbox
