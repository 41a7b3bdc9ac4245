// The decision on one account's reports, as a value.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "evaluation/account_stats.h"
#include "evaluation/change_alerts.h"
#include "platform/regional_settings.h"

namespace quillbox {

// Whether the setting DataToDownload takes in the report that the setting's text `report` stands
// for.
bool Selects(std::string_view dataToDownload, std::string_view report);

// Texts are in the code page.
struct EvaluationInput {
  std::string DataToDownload;
  std::string LastDate;
  bool Use24Hour = false;
  std::string ShowBalloonWhen;

  std::string StoredStats;    // the account's stored record; empty when there is none
  std::string StoredHistory;  // its ImpressionHistory

  // The report files' whole texts; nothing for one that can't be read. Those that DataToDownload
  // doesn't select are not looked at.
  std::optional<std::string> Content, Search, Referral;

  std::chrono::local_seconds Now{};
};

struct EvaluationDecision {
  AccountStats Stats;
  std::string History;      // to be stored in any case
  bool GatePassed = false;  // Stats are to be stored; without it there are no changes
  ChangeSet Changes;
  bool BalloonWanted = false;
};

// Never fails. Takes time in proportion to the texts.
EvaluationDecision EvaluateReports(const EvaluationInput& input, const RegionalSettings& region);

}  // namespace quillbox
