#include "evaluation/account_evaluation.h"

#include <vector>

#include "config/setting_keys.h"
#include "evaluation/date_text.h"
#include "evaluation/failure_rule.h"
#include "evaluation/figures.h"
#include "evaluation/impression_history.h"
#include "evaluation/report_row.h"

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

}  // namespace quillbox
