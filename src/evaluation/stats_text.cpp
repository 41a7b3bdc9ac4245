#include "evaluation/stats_text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>

#include "evaluation/account_stats.h"
#include "evaluation/report_row.h"
#include "region/conversions.h"
#include "region/date_text.h"
#include "region/failure_rule.h"
#include "region/number_text.h"
#include "text/code_page.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

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

// The lines of the statistics text, one for each letter of the setting Values, in the order in
// which they are shown.
constexpr std::array<StatsLine, stats_field::kCount> kStatsLines = {{
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

// A dollar sign in every region, and the digits in the region's notation. `Amount` is a number or a
// text.
template <typename Amount>
std::string MoneyText(const Amount& amount, const RegionalSettings& region) {
  return "$" + KeepNumberChars(CurrencyText(amount, 2, region));
}

constexpr std::string_view kNoPrediction = "N/A";

std::string ValueOfAccount(LineValue value, const std::string& field, int currentYear,
                           const RegionalSettings& region) {
  switch (value) {
    case LineValue::kDate:
      return ShortDate(ToDate(field, region, currentYear), region);
    case LineValue::kCount:
      return GroupedText(field, region);
    case LineValue::kRate:
    case LineValue::kTime:
      return field;
    case LineValue::kMeanAmount:
    case LineValue::kTotalAmount:
      return MoneyText(field, region);
    case LineValue::kPrediction:
      return field == "0" ? std::string(kNoPrediction) : MoneyText(field, region);
  }
  throw StepFailed{};
}

std::int32_t Sum(std::int32_t a, std::int32_t b) {
  using Limits = std::numeric_limits<std::int32_t>;
  const std::int64_t sum = std::int64_t{a} + b;
  if (sum < Limits::min() || sum > Limits::max()) throw StepFailed{};
  return static_cast<std::int32_t>(sum);
}

// The line, without a line end, of one account's record. Throws StepFailed when the field isn't
// there or can't be converted. `currentYear` completes a date without a year.
std::string LineOfAccount(const StatsLine& line, const Cells& record, int currentYear,
                          const RegionalSettings& region) {
  return std::string(line.Label) +
         ValueOfAccount(line.Value, record.At(line.Field), currentYear, region);
}

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

void AccountTotals::Add(const Cells& record, const RegionalSettings& region) {
  for (const StatsLine& line : kStatsLines) {
    if (line.Value == LineValue::kDate || line.Value == LineValue::kTime) continue;
    Attempt([&] {
      const std::string& field = record.At(line.Field);
      if (line.Value == LineValue::kCount) {
        counts_[line.Field] = Sum(counts_[line.Field], ToLong(field, region));
      } else if (line.Value == LineValue::kRate) {
        amounts_[line.Field] += ToDouble(WithoutText(field, "%"), region);
      } else {
        amounts_[line.Field] += ToDouble(field, region);
      }
    });
  }
  ++accounts_;
  last_ = record;
}

double AccountTotals::Mean(const StatsLine& line) const {
  if (accounts_ == 0) throw StepFailed{};
  return amounts_[line.Field] / accounts_;
}

std::string AccountTotals::Line(const StatsLine& line, int currentYear,
                                const RegionalSettings& region) const {
  const std::string label(line.Label);
  switch (line.Value) {
    case LineValue::kDate:
    case LineValue::kTime:
      return LineOfAccount(line, last_, currentYear, region);
    case LineValue::kCount:
      return label + GroupedText(counts_[line.Field], region);
    case LineValue::kRate:
      return label + NumberText(Mean(line), region) + '%';
    case LineValue::kMeanAmount:
      return label + MoneyText(Mean(line), region);
    case LineValue::kPrediction:
      if (amounts_[line.Field] == 0) return label + std::string(kNoPrediction);
      [[fallthrough]];
    case LineValue::kTotalAmount:
      return label + MoneyText(amounts_[line.Field], region);
  }
  throw StepFailed{};
}

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

MenuItem StatsPopup(const std::string& account, std::string_view record,
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
  return popup;
}

std::string ReadRecord(const SettingsStore& store, const std::string& account) {
  const AccountKeys keys(account);
  return store.ReadSetting(keys.Stats());
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

void InsertStatsPopups(Menu& menu, std::span<const std::string> accounts,
                       std::span<const std::string> records, const RegionalSettings& region) {
  for (std::size_t i = 0; i < accounts.size(); ++i) {
    const auto place = std::min<std::ptrdiff_t>(1, std::ssize(menu));
    menu.insert(menu.begin() + place, StatsPopup(accounts[i], records[i], region));
  }
}

std::vector<std::string> StoredRecords(const SettingsStore& store,
                                       std::span<const std::string> accounts) {
  std::vector<std::string> records;
  records.reserve(accounts.size());
  for (const std::string& account : accounts) records.push_back(ReadRecord(store, account));
  return records;
}

std::string BuildStatsText(const StatsSource& source, std::string& account) {
  if (account.empty()) account = source.Store.ReadSetting(kPrimaryAccount);
  if (account.empty()) return {};
  const std::string values = source.Store.ReadSetting(kTooltipValues);
  const int year = YearOf(source.Now);
  if (source.Store.ReadSetting(kDisplayAllStats) != kTrue) {
    return OneAccountStatsText(values, ReadRecord(source.Store, account), year, source.Region);
  }
  return AllAccountsStatsText(values, StoredRecords(source.Store, source.Accounts), year,
                              source.Region);
}

std::optional<std::string> TooltipStatsText(const StatsSource& source, const std::string& account) {
  if (ReadRecord(source.Store, account).empty()) return std::nullopt;
  std::string name = account;
  return BuildStatsText(source, name);
}

}  // namespace quillbox
