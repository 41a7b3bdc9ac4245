// What one account's downloaded reports lead to: decided as a value, stored, told, carried out.
#pragma once

#include <array>
#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "config/settings_store.h"
#include "evaluation/account_stats.h"
#include "evaluation/change_alerts.h"
#include "evaluation/stats_text.h"
#include "region/regional_settings.h"

namespace quillbox {

struct ProgramContext;

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

// Full paths. The files need not be there.
struct ReportPaths {
  std::string Content, Search, Referral;
};

using SoundFileNames = std::array<std::string, kFigures + 1>;  // the last one for any change

// All that an evaluation works with.
struct EvaluationPorts {
  SettingsStore& Store;
  Files& Disk;
  const std::vector<std::string>& Accounts;
  const SoundFileNames& SoundFiles;
  const RegionalSettings& Region;
  std::chrono::local_seconds Now;
};

// What a person is to see and hear.
struct EvaluationEffects {
  std::optional<std::string> Tooltip;  // nothing leaves it as it is
  std::optional<std::string> Balloon;  // the whole text; nothing for no balloon
  std::vector<std::string> Sounds;     // files, in the order in which they are to be asked for
};

struct Evaluation {
  EvaluationInput Input;
  EvaluationDecision Decision;
  EvaluationEffects Effects;
};

// Reads the reports that DataToDownload selects and decides. History and record are then stored in
// one change, so that no crash leaves them out of step. The texts to show are made of what is
// stored afterwards. Never fails: a step that fails is skipped.
Evaluation EvaluateAndStore(const EvaluationPorts& ports, const ReportPaths& reports,
                            const std::string& account);

// Writes LastDate if anything has changed. To be done when the effects have been carried out.
void StoreLastDate(SettingsStore& store, const EvaluationDecision& decision);

// The whole of it: EvaluateAndStore, then tooltip, balloon, sounds and LastDate, in this order.
void EvaluateAccountReports(const ProgramContext& program, const ReportPaths& reports,
                            const std::string& account);

}  // namespace quillbox
