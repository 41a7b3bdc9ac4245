// The lines of the statistics text, one for each letter of the setting Values.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "evaluation/account_stats.h"
#include "evaluation/cells.h"
#include "platform/regional_settings.h"

namespace quillbox {

// How a line's value is shown, and how it is put together over several accounts.
enum class LineValue {
  kDate,         // of the last account
  kCount,        // summed
  kRate,         // a mean, in percent
  kMeanAmount,   // a mean
  kTotalAmount,  // summed
  kPrediction,   // summed; "N/A" for none
  kTime,         // of the last account
};

struct StatsLine {
  char Letter;
  std::string_view Label;
  std::size_t Field;
  LineValue Value;
};

// In the order in which they are shown.
inline constexpr std::array<StatsLine, stats_field::kCount> kStatsLines = {{
    {'A', "Date: ", stats_field::kReportDate, LineValue::kDate},
    {'B', "Impressions: ", stats_field::kImpressions, LineValue::kCount},
    {'C', "Clicks: ", stats_field::kClicks, LineValue::kCount},
    {'D', "CTR: ", stats_field::kCtr, LineValue::kRate},
    {'E', "eCPM: ", stats_field::kEcpm, LineValue::kMeanAmount},
    {'F', "Earnings: ", stats_field::kEarnings, LineValue::kTotalAmount},
    {'H', "Predicted Earnings: ", stats_field::kPredictedEarnings, LineValue::kPrediction},
    {'I', "Month Impressions: ", stats_field::kMonthImpressions, LineValue::kCount},
    {'J', "Month Clicks: ", stats_field::kMonthClicks, LineValue::kCount},
    {'K', "Month CTR: ", stats_field::kMonthCtr, LineValue::kRate},
    {'L', "Month eCPM: ", stats_field::kMonthEcpm, LineValue::kMeanAmount},
    {'M', "Month Earnings: ", stats_field::kMonthEarnings, LineValue::kTotalAmount},
    {'G', "Downloaded: ", stats_field::kLastUpdated, LineValue::kTime},
}};

// The line, without a line end, of one account's record. Throws StepFailed when the field isn't
// there or can't be converted. `currentYear` completes a date without a year.
std::string LineOfAccount(const StatsLine& line, const Cells& record, int currentYear,
                          const RegionalSettings& region);

// Running totals over several accounts.
class AccountTotals {
 public:
  // What is missing or can't be converted adds nothing; the account counts in means all the same.
  void Add(const Cells& record, const RegionalSettings& region);

  // As LineOfAccount; date and time are those of the account that was added last. Throws StepFailed
  // for a mean over no accounts, too.
  std::string Line(const StatsLine& line, int currentYear, const RegionalSettings& region) const;

 private:
  double Mean(const StatsLine& line) const;

  std::array<std::int32_t, stats_field::kCount> counts_{};
  std::array<double, stats_field::kCount> amounts_{};
  int accounts_ = 0;
  Cells last_;
};

}  // namespace quillbox
