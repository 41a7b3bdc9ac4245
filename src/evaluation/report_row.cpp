#include "evaluation/report_row.h"

#include "evaluation/report_cells.h"
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

}  // namespace quillbox
