// What one account's downloaded reports lead to.
#pragma once

#include <string>

#include "state/program_context.h"

namespace quillbox {

// Reads the reports that DataToDownload selects, works out the figures, stores history and record,
// updates the tooltip, raises the balloon and the sounds, and writes LastDate, in this order. Files
// are full paths and need not be there. Never fails: a step that fails is skipped.
void EvaluateAccountReports(const ProgramContext& program, const std::string& contentFile,
                            const std::string& searchFile, const std::string& referralFile,
                            const std::string& account);

}  // namespace quillbox
