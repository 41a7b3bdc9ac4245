#include "evaluation/stats_lines.h"

#include <limits>

#include "evaluation/conversions.h"
#include "evaluation/date_text.h"
#include "evaluation/failure_rule.h"
#include "evaluation/number_text.h"
#include "evaluation/report_cells.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

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

}  // namespace

std::string LineOfAccount(const StatsLine& line, const Cells& record, int currentYear,
                          const RegionalSettings& region) {
  return std::string(line.Label) +
         ValueOfAccount(line.Value, record.At(line.Field), currentYear, region);
}

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

}  // namespace quillbox
