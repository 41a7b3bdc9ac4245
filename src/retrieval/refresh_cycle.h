// Fetching and evaluating the reports of every account.
#pragma once

#include "state/program_context.h"

namespace quillbox {

// The whole cycle over all accounts; events are pumped while it waits. Without accounts it says so
// in a message box. A second cycle never starts over a running one: it does nothing then.
void RefreshAllAccounts(const ProgramContext& program);

}  // namespace quillbox
