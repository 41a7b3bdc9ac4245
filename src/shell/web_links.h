// The links of the menu to the maker's site, and the manual.
#pragma once

#include "state/program_context.h"

namespace quillbox {

void TWVisit_Click(const ProgramContext& program);
void TWDonate_Click(const ProgramContext& program);
void QuillboxSupportForums_Click(const ProgramContext& program);
void SendBugReport_Click(const ProgramContext& program);

// Opens the manual, or says that it is missing.
void QuillboxManual_Click(const ProgramContext& program);

}  // namespace quillbox
