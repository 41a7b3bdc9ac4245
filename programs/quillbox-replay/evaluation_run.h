// One evaluation on the recording host.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "quillbox-replay/evaluation_host.h"

namespace quillbox {

struct ReportPaths {
  std::string Content = "Content.dat";
  std::string Search = "Search.dat";
  std::string Referral = "Referral.dat";
};

struct EvaluationEffects {
  std::optional<std::string> Tooltip;  // nothing when it was left alone
  std::optional<std::string> Balloon;  // the whole text; nothing when none was raised
  std::vector<std::string> Sounds;     // the files asked for, in order
};

// What is stored goes to the host's store.
EvaluationEffects RunEvaluation(EvaluationHost& host, const ReportPaths& reports,
                                const std::string& account);

}  // namespace quillbox
