// The cells that count of a downloaded report: those of its last three lines.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "evaluation/cells.h"
#include "platform/regional_settings.h"

namespace quillbox {

// The numbers of the cells in a row.
struct RowLayout {
  std::size_t ReportDate, Impressions, Clicks, Ctr, Ecpm, Earnings;
  std::size_t MonthImpressions, MonthClicks, MonthCtr, MonthEcpm, MonthEarnings;
};
inline constexpr RowLayout kContentLayout{0, 1, 2, 3, 4, 5, 7, 8, 9, 10, 11};
inline constexpr RowLayout kSearchLayout = kContentLayout;
inline constexpr RowLayout kReferralLayout{0, 1, 2, 3, 5, 6, 8, 9, 10, 12, 13};

class ReportRow {
 public:
  ReportRow(Cells cells, const RowLayout& layout) : cells_(std::move(cells)), layout_(layout) {}

  // Throw StepFailed when the row lacks the cell.
  const std::string& At(std::size_t RowLayout::*cell) const { return cells_.At(layout_.*cell); }
  std::string& At(std::size_t RowLayout::*cell) { return cells_.At(layout_.*cell); }

 private:
  Cells cells_;
  RowLayout layout_;
};

// What follows the fourth line feed from the end of a text without double quotes: the latest day,
// the month's totals, a line that isn't used, each with its line feed. Of a text with fewer line
// feeds more or less than that.
std::string_view TailOfReport(std::string_view text);

// The row of a report's whole text, its percentages and amounts made readable for the region. A
// text of fewer than ten characters, or none, gives `placeholder` instead, which is one line of
// cells.
ReportRow ReadReportRow(const std::optional<std::string>& text, const RowLayout& layout,
                        std::string_view placeholder, const RegionalSettings& region);

}  // namespace quillbox
