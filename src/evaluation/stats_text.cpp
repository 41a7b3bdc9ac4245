#include "evaluation/stats_text.h"

#include <algorithm>

#include "evaluation/failure_rule.h"
#include "evaluation/stats_lines.h"
#include "text/code_page.h"

namespace quillbox {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr char kLastLetter = 'G';  // its line has no line end

// `lineOf` makes a line's text, or throws StepFailed.
template <typename LineOf>
std::string StatsText(std::string_view values, LineOf lineOf) {
  const std::string letters = UpperCase(values);
  std::string text;
  for (const StatsLine& line : kStatsLines) {
    if (letters.find(line.Letter) == std::string::npos) continue;
    Attempt([&] {
      text += lineOf(line);
      if (line.Letter != kLastLetter) text += kLineEnd;
    });
  }
  if (text.ends_with(kLineEnd)) text.resize(text.size() - kLineEnd.size());
  return text;
}

}  // namespace

std::string OneAccountStatsText(std::string_view values, std::string_view record, int currentYear,
                                const RegionalSettings& region) {
  const Cells fields = StoredFields(record);
  return StatsText(values, [&](const StatsLine& line) {
    return LineOfAccount(line, fields, currentYear, region);
  });
}

std::string AllAccountsStatsText(std::string_view values, std::span<const std::string> records,
                                 int currentYear, const RegionalSettings& region) {
  AccountTotals totals;
  for (const std::string& record : records) totals.Add(StoredFields(record), region);
  return StatsText(values,
                   [&](const StatsLine& line) { return totals.Line(line, currentYear, region); });
}

std::vector<std::string> StatsPopupItems(std::string_view record, const RegionalSettings& region) {
  constexpr int kNoYear = 0;  // the date is shown as it is stored
  const Cells fields = StoredFields(record);
  std::vector<std::string> items;
  if (fields.Count() != stats_field::kCount) return items;
  items.push_back(fields.At(stats_field::kReportDate));
  for (const StatsLine& line : kStatsLines) {
    if (line.Value == LineValue::kDate) continue;
    Attempt([&] { items.push_back(LineOfAccount(line, fields, kNoYear, region)); });
  }
  return items;
}

void InsertStatsPopup(Menu& menu, const std::string& account, std::string_view record,
                      const RegionalSettings& region) {
  constexpr int kCommand = 1;
  MenuItem popup;
  popup.Caption = account;
  popup.Submenu = true;
  for (std::string& caption : StatsPopupItems(record, region)) {
    MenuItem& item = popup.Items.emplace_back();
    item.Caption = std::move(caption);
    item.Command = kCommand;
  }
  const auto place = std::min<std::ptrdiff_t>(1, std::ssize(menu));
  menu.insert(menu.begin() + place, std::move(popup));
}

Menu AccountStatsPopups(std::span<const std::string> accounts, std::span<const std::string> records,
                        const RegionalSettings& region) {
  Menu menu;
  for (std::size_t i = 0; i < accounts.size(); ++i) {
    InsertStatsPopup(menu, accounts[i], records[i], region);
  }
  return menu;
}

}  // namespace quillbox
