#include "evaluation/account_evaluation.h"

#include <vector>

#include "evaluation/figures.h"
#include "evaluation/report_row.h"
#include "platform/storage.h"
#include "platform/surroundings.h"
#include "platform/timing.h"
#include "region/date_text.h"
#include "region/failure_rule.h"
#include "state/program_context.h"
#include "tray/tray_icon.h"

namespace quillbox {
namespace {

// Stands in for a report: today, and eleven cells of 0.
std::string PlaceholderRow(std::chrono::local_seconds now, const RegionalSettings& region) {
  constexpr int kZeroCells = 11;
  std::string row =
      ShortDate(std::chrono::year_month_day(std::chrono::floor<std::chrono::days>(now)), region);
  for (int cell = 0; cell < kZeroCells; ++cell) row += "\t0";
  return row;
}

// Of the reports that the setting selects: three, one or none.
std::vector<ReportRow> SelectedRows(const EvaluationInput& input, const RegionalSettings& region) {
  const std::string placeholder = PlaceholderRow(input.Now, region);
  std::vector<ReportRow> rows;
  const auto read = [&](std::string_view report, const std::optional<std::string>& text,
                        const RowLayout& layout) {
    if (!Selects(input.DataToDownload, report)) return;
    rows.push_back(ReadReportRow(text, layout, placeholder, region));
  };
  read(kDownloadContent, input.Content, kContentLayout);
  read(kDownloadSearch, input.Search, kSearchLayout);
  read(kDownloadReferrals, input.Referral, kReferralLayout);
  return rows;
}

std::chrono::seconds TimeOfDay(std::chrono::local_seconds now) {
  return now - std::chrono::floor<std::chrono::days>(now);
}

EvaluationInput ReadInput(const EvaluationPorts& ports, const ReportPaths& reports,
                          const AccountKeys& keys) {
  const SettingsStore& store = ports.Store;
  EvaluationInput input;
  input.DataToDownload = store.ReadSetting(kDataToDownload);
  input.LastDate = store.ReadSetting(kLastDate);
  input.Use24Hour = store.ReadSetting(kUse24Hour) == kTrue;
  input.ShowBalloonWhen = store.ReadSetting(kShowBalloonWhen);
  input.StoredStats = store.ReadSetting(keys.Stats());
  input.StoredHistory = store.ReadSetting(keys.Impressions());
  input.Now = ports.Now;
  const auto read = [&](std::string_view report, const std::string& path) {
    return Selects(input.DataToDownload, report) ? ports.Disk.Read(path) : std::nullopt;
  };
  input.Content = read(kDownloadContent, reports.Content);
  input.Search = read(kDownloadSearch, reports.Search);
  input.Referral = read(kDownloadReferrals, reports.Referral);
  return input;
}

void Store(SettingsStore& store, const AccountKeys& keys, const EvaluationDecision& decision) {
  SettingBatch batch;
  batch.Write(keys.Impressions(), decision.History);
  if (decision.GatePassed) batch.Write(keys.Stats(), StoredRecord(decision.Stats));
  store.WriteBatch(batch);
}

// One for each figure that has changed, and one for any change at all.
std::vector<std::string> SoundsOf(const ChangeSet& changes, const SoundFileNames& files) {
  std::vector<std::string> sounds;
  if (changes.Empty()) return sounds;
  for (std::size_t i = 0; i <= kFigures; ++i) {
    const bool wanted = i == kFigures || changes.Has(static_cast<Figure>(i));
    if (wanted && files[i] != kNoSound) sounds.push_back(files[i]);
  }
  return sounds;
}

EvaluationEffects EffectsOf(const EvaluationDecision& decision, const EvaluationPorts& ports,
                            const std::string& account) {
  EvaluationEffects effects;
  if (!decision.GatePassed) return effects;
  if (ports.Store.ReadSetting(kPrimaryAccount) == account) {
    const StatsSource stats{ports.Store, ports.Accounts, ports.Region, ports.Now};
    effects.Tooltip = TooltipStatsText(stats, account);
    std::string name = account;
    if (decision.BalloonWanted) effects.Balloon = BuildStatsText(stats, name);
  }
  effects.Sounds = SoundsOf(decision.Changes, ports.SoundFiles);
  return effects;
}

}  // namespace

bool Selects(std::string_view dataToDownload, std::string_view report) {
  return dataToDownload == kDownloadAll || dataToDownload == report;
}

EvaluationDecision EvaluateReports(const EvaluationInput& input, const RegionalSettings& region) {
  EvaluationDecision decision;
  AccountStats& stats = decision.Stats;
  stats = FiguresOf(SelectedRows(input, region), region);
  stats.LastUpdated = TimeText(TimeOfDay(input.Now), input.Use24Hour, region);

  const Cells stored = StoredFields(input.StoredStats);
  ImpressionAverage average =
      AverageOf(RolledOver(input.StoredHistory, stored, stats.Impressions, region), region);
  Attempt([&] { stats.PredictedEarnings = PredictEarnings(stats.Ecpm, average.Daily, region); });
  decision.History = std::move(average.History);

  decision.GatePassed = GatePasses(stats, stored, input.LastDate, region);
  if (!decision.GatePassed) return decision;
  decision.Changes = FindChanges(stats, stored, input.LastDate, region);
  decision.BalloonWanted = BalloonNamed(input.ShowBalloonWhen, decision.Changes);
  return decision;
}

Evaluation EvaluateAndStore(const EvaluationPorts& ports, const ReportPaths& reports,
                            const std::string& account) {
  const AccountKeys keys(account);
  Evaluation evaluation;
  evaluation.Input = ReadInput(ports, reports, keys);
  evaluation.Decision = EvaluateReports(evaluation.Input, ports.Region);
  Store(ports.Store, keys, evaluation.Decision);
  evaluation.Effects = EffectsOf(evaluation.Decision, ports, account);
  return evaluation;
}

void StoreLastDate(SettingsStore& store, const EvaluationDecision& decision) {
  if (!decision.Changes.Empty()) store.WriteSetting(kLastDate, decision.Stats.ReportDate);
}

void EvaluateAccountReports(const ProgramContext& program, const ReportPaths& reports,
                            const std::string& account) {
  const Host& host = program.Host;
  const EvaluationPorts ports{program.Store,          host.Disk,
                              program.State.Accounts, program.State.SoundFiles,
                              program.Region,         host.Time.LocalTime()};
  const Evaluation evaluation = EvaluateAndStore(ports, reports, account);
  const EvaluationEffects& effects = evaluation.Effects;
  if (effects.Tooltip) SetTooltipText(program, *effects.Tooltip);
  if (effects.Balloon) ShowBalloon(program, *effects.Balloon);
  for (const std::string& file : effects.Sounds) host.Speaker.PlaySoundFile(file);
  StoreLastDate(program.Store, evaluation.Decision);
}

}  // namespace quillbox
