#include "evaluation/impression_history.h"

#include <cmath>
#include <limits>
#include <span>
#include <vector>

#include "evaluation/account_stats.h"
#include "evaluation/conversions.h"
#include "evaluation/failure_rule.h"
#include "evaluation/number_text.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

constexpr std::size_t kMostDays = 7;

// Half to even.
std::int32_t RoundToLong(double number) {
  using Limits = std::numeric_limits<std::int32_t>;
  const double rounded = std::nearbyint(number);
  if (!(rounded >= Limits::min() && rounded <= Limits::max())) throw StepFailed{};
  return static_cast<std::int32_t>(rounded);
}

}  // namespace

std::string RolledOver(std::string history, const Cells& stored, std::string_view freshImpressions,
                       const RegionalSettings& region) {
  const bool newDay = TrueOrFailed([&] {
    return ToLong(stored.At(stats_field::kImpressions), region) > ToLong(freshImpressions, region);
  });
  if (!newDay) return history;
  Attempt([&] {
    std::string rolled = stored.At(stats_field::kImpressions);
    if (!history.empty()) (rolled += kListSeparator) += history;
    history = rolled;
  });
  return history;
}

ImpressionAverage AverageOf(std::string_view history, const RegionalSettings& region) {
  std::vector<std::string> days = SplitText(history, kListSeparator);
  if (days.size() > kMostDays) days.resize(kMostDays);
  std::int32_t sum = 0;
  for (const std::string& day : days) {
    Attempt([&] { sum = RoundToLong(sum + ToDouble(day, region)); });
  }
  ImpressionAverage average{JoinText(days, kListSeparator)};
  if (!days.empty()) average.Daily = RoundToLong(sum / static_cast<double>(days.size()));
  return average;
}

std::string PredictEarnings(std::string_view ecpm, std::int32_t dailyImpressions,
                            const RegionalSettings& region) {
  const std::string amount =
      CurrencyText(ToDouble(ecpm, region) * (dailyImpressions / 1000.0), std::nullopt, region);
  return amount == "$." ? "N/A" : amount;
}

}  // namespace quillbox
