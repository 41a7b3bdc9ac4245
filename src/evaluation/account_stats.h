// The statistics record of one account, and how it is stored.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "region/failure_rule.h"

namespace quillbox {

// A list of texts whose reader may ask for more than there are: the cells of a report's row, or the
// fields of a stored record; numbered from 0.
class Cells {
 public:
  Cells() = default;
  explicit Cells(std::vector<std::string> texts) : texts_(std::move(texts)) {}

  // Throws StepFailed when there is no such cell.
  const std::string& At(std::size_t number) const {
    if (number >= texts_.size()) throw StepFailed{};
    return texts_[number];
  }
  std::string& At(std::size_t number) {
    if (number >= texts_.size()) throw StepFailed{};
    return texts_[number];
  }

  std::size_t Count() const { return texts_.size(); }

 private:
  std::vector<std::string> texts_;
};

// What could not be worked out is empty. Amounts are in the account's currency.
struct AccountStats {
  std::string LastUpdated;  // time of day of the evaluation
  std::string ReportDate;   // date cell of the latest day

  std::string Impressions;  // of the latest day, as the following
  std::string Clicks;
  std::string Ctr;
  std::string Ecpm;
  std::string Earnings;
  std::string PredictedEarnings;  // estimate for a whole day

  std::string MonthImpressions;  // month to date, as the following
  std::string MonthClicks;
  std::string MonthCtr;
  std::string MonthEcpm;
  std::string MonthEarnings;
};

// The numbers of the fields in a stored record. Stored: they must not change.
namespace stats_field {
inline constexpr std::size_t kLastUpdated = 0;
inline constexpr std::size_t kReportDate = 1;
inline constexpr std::size_t kImpressions = 2;
inline constexpr std::size_t kClicks = 3;
inline constexpr std::size_t kCtr = 4;
inline constexpr std::size_t kEcpm = 5;
inline constexpr std::size_t kEarnings = 6;
inline constexpr std::size_t kPredictedEarnings = 7;
inline constexpr std::size_t kMonthImpressions = 8;
inline constexpr std::size_t kMonthClicks = 9;
inline constexpr std::size_t kMonthCtr = 10;
inline constexpr std::size_t kMonthEcpm = 11;
inline constexpr std::size_t kMonthEarnings = 12;
inline constexpr std::size_t kCount = 13;
}  // namespace stats_field

// The 13 fields as they are stored. Stored: must not change.
std::string StoredRecord(const AccountStats& stats);

// The fields of a stored record; none when nothing is stored.
Cells StoredFields(std::string_view record);

}  // namespace quillbox
