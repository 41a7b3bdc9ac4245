// What the agent's result codes mean for an account's turn.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

struct RefreshOutcome {
  bool Evaluate = false;               // the reports are good
  std::optional<std::string> Balloon;  // whole text
};

// `contentCode` and `otherCode` are the logs' texts; the number at the head of each counts.
RefreshOutcome DecideRefreshOutcome(std::string_view contentCode, std::string_view otherCode,
                                    std::string_view username, std::string_view serviceDomain);

// The balloon's text when no answer came.
std::string NoResponseText(std::string_view serviceDomain);

}  // namespace quillbox
