// The cells of a downloaded report that count: those of its last three lines. Cells are read by
// position, without knowing the region that wrote them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "evaluation/account_stats.h"
#include "region/regional_settings.h"

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

// Single cells.

// Puts the region's decimal separator in the place of the first character that isn't a digit:
// "0.97%" stays or becomes "0,97%", "0%" becomes "0." or "0,".
void FixPercentCell(std::string& cell, const RegionalSettings& region);

// If the third character from the end isn't a digit, it becomes the region's decimal separator, and
// every character before it that isn't a digit the group separator, a leading "$" or "-" too. A
// cell of fewer than three characters stays as it is.
void FixMoneyCell(std::string& cell, const RegionalSettings& region);

// The same with "." and "," in every region, and without percent signs. Throws ConversionFailed on
// fewer than three characters.
std::string NormalizeReportCell(std::string_view cell);

// The region's decimal mark and its group mark, each one character, as seen in 1000.5 written with
// two decimals: a region without groups gives "0" for the comma.
std::string PeriodCharacter(const RegionalSettings& region);
std::string CommaCharacter(const RegionalSettings& region);

// The plain blanks, digits, commas and points of the text, without blanks at either end.
std::string KeepNumberChars(std::string_view text);

}  // namespace quillbox
