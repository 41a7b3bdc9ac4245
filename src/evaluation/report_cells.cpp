#include "evaluation/report_cells.h"

#include <algorithm>
#include <string>

#include "evaluation/failure_rule.h"
#include "evaluation/number_text.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
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
