// Fetching and evaluating the reports of every account.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "state/program_context.h"

namespace quillbox {

// The whole cycle over all accounts; events are pumped while it waits. Without accounts it says so
// in a message box. A second cycle never starts over a running one: it does nothing then.
void RefreshAllAccounts(const ProgramContext& program);

// What the agent's result codes mean for an account's turn.
struct RefreshOutcome {
  bool Evaluate = false;               // the reports are good
  std::optional<std::string> Balloon;  // whole text
};

// `contentCode` and `otherCode` are the logs' texts; the number at the head of each counts.
RefreshOutcome DecideRefreshOutcome(std::string_view contentCode, std::string_view otherCode,
                                    std::string_view username, std::string_view serviceDomain);

}  // namespace quillbox
