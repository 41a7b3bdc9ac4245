#include "evaluation/report_row.h"

#include <algorithm>

#include "region/number_text.h"
#include "text/code_page.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

constexpr std::size_t kShortestReport = 10;
constexpr char kLineFeed = '\n';

// No layout has more cells; a page that is no report may.
constexpr std::size_t kMostCells = 14;

// The last line feed among the first `length` characters, counted from 1; 0 when there is none.
std::size_t LastLineFeed(std::string_view text, std::size_t length) {
  const std::size_t found = text.substr(0, length).rfind(kLineFeed);
  return found == std::string_view::npos ? 0 : found + 1;
}

// Line feeds separate cells as tabs do.
Cells SplitCells(std::string_view tail) {
  std::vector<std::string> cells;
  if (tail.empty()) return Cells{};
  cells.reserve(kMostCells);
  while (cells.size() < kMostCells) {
    const std::size_t end = tail.find_first_of("\t\n");
    cells.emplace_back(tail.substr(0, end));
    if (end == std::string_view::npos) break;
    tail.remove_prefix(end + 1);
  }
  return Cells(std::move(cells));
}

void Normalize(ReportRow& row, const RegionalSettings& region) {
  for (const auto cell : {&RowLayout::Ctr, &RowLayout::MonthCtr}) {
    Attempt([&] { FixPercentCell(row.At(cell), region); });
  }
  for (const auto cell :
       {&RowLayout::Ecpm, &RowLayout::Earnings, &RowLayout::MonthEcpm, &RowLayout::MonthEarnings}) {
    Attempt([&] { FixMoneyCell(row.At(cell), region); });
  }
}

// Where the decimal mark is looked for, counted from the end.
constexpr std::size_t kMarkFromEnd = 3;

// Beyond the place of any decimal mark; counted from 1.
constexpr std::size_t kNoMark = 500;

// Rewrites the marks of a cell of at least three characters by position alone.
void ReplaceMarks(std::string& cell, char decimal, char group) {
  std::size_t limit = kNoMark;
  char& mark = cell[cell.size() - kMarkFromEnd];
  if (!IsDigit(mark)) {
    limit = cell.size() - kMarkFromEnd + 1;
    mark = decimal;
  }
  if (cell.size() <= limit) return;
  const auto end = cell.begin() + static_cast<std::ptrdiff_t>(limit) - 1;
  std::replace_if(
      cell.begin(), end, [](char c) { return !IsDigit(c); }, group);
}

char DecimalMark(const RegionalSettings& region) {
  const std::string sample = FixedNumberText(1000.5, 2, region);
  return sample[sample.size() - kMarkFromEnd];
}

char GroupMark(const RegionalSettings& region) {
  return FixedNumberText(1000.5, 2, region)[1];
}

}  // namespace

std::string_view TailOfReport(std::string_view text) {
  std::size_t position = LastLineFeed(text, text.size());
  for (int line = 0; line < 3; ++line) {
    if (position == 1) break;  // nothing lies before it to search in
    position = LastLineFeed(text, position == 0 ? text.size() : position - 1);
  }
  return text.substr(position);
}

ReportRow ReadReportRow(const std::optional<std::string>& text, const RowLayout& layout,
                        std::string_view placeholder, const RegionalSettings& region) {
  const std::string unquoted = text ? WithoutText(*text, "\"") : std::string();
  const bool missing = unquoted.size() < kShortestReport;
  ReportRow row(SplitCells(TailOfReport(missing ? placeholder : unquoted)), layout);
  Normalize(row, region);
  return row;
}

void FixPercentCell(std::string& cell, const RegionalSettings& region) {
  const auto other = std::ranges::find_if_not(cell, IsDigit);
  if (other != cell.end()) *other = FixedNumberText(5.5, 2, region)[1];
}

void FixMoneyCell(std::string& cell, const RegionalSettings& region) {
  if (cell.size() < kMarkFromEnd) return;
  ReplaceMarks(cell, DecimalMark(region), GroupMark(region));
}

std::string NormalizeReportCell(std::string_view cell) {
  if (cell.size() < kMarkFromEnd) throw ConversionFailed{};
  std::string text(cell);
  ReplaceMarks(text, '.', ',');
  std::erase(text, '%');
  return text;
}

std::string PeriodCharacter(const RegionalSettings& region) {
  return std::string(1, DecimalMark(region));
}

std::string CommaCharacter(const RegionalSettings& region) {
  return std::string(1, GroupMark(region));
}

std::string KeepNumberChars(std::string_view text) {
  constexpr std::string_view kKept = " 0123456789,.";
  std::string kept;
  std::ranges::copy_if(text, std::back_inserter(kept),
                       [&](char c) { return kKept.find(c) != kKept.npos; });
  return std::string(Trimmed(kept, kBlank));
}

}  // namespace quillbox
