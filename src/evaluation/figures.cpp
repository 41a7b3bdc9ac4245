#include "evaluation/figures.h"

#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include "region/conversions.h"
#include "region/failure_rule.h"
#include "region/number_text.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

using RowCell = std::size_t RowLayout::*;
using StatsField = std::string AccountStats::*;

struct CellOfField {
  StatsField Field;
  RowCell Cell;
};

constexpr CellOfField kCellsOfFields[] = {
    {&AccountStats::ReportDate, &RowLayout::ReportDate},
    {&AccountStats::Impressions, &RowLayout::Impressions},
    {&AccountStats::Clicks, &RowLayout::Clicks},
    {&AccountStats::Ctr, &RowLayout::Ctr},
    {&AccountStats::Ecpm, &RowLayout::Ecpm},
    {&AccountStats::Earnings, &RowLayout::Earnings},
    {&AccountStats::MonthImpressions, &RowLayout::MonthImpressions},
    {&AccountStats::MonthClicks, &RowLayout::MonthClicks},
    {&AccountStats::MonthCtr, &RowLayout::MonthCtr},
    {&AccountStats::MonthEcpm, &RowLayout::MonthEcpm},
    {&AccountStats::MonthEarnings, &RowLayout::MonthEarnings},
};

AccountStats FiguresOfOneReport(const ReportRow& row) {
  AccountStats stats;
  for (const CellOfField& pair : kCellsOfFields) {
    Attempt([&] { stats.*pair.Field = row.At(pair.Cell); });
  }
  return stats;
}

double Quotient(double dividend, double divisor) {
  if (divisor == 0) throw StepFailed{};
  return dividend / divisor;
}

std::int64_t Sum(std::span<const std::int64_t> addends) {
  using Limits = std::numeric_limits<std::int64_t>;
  std::int64_t sum = 0;
  for (const std::int64_t addend : addends) {
    const bool fits = addend > 0 ? sum <= Limits::max() - addend : sum >= Limits::min() - addend;
    if (!fits) throw StepFailed{};
    sum += addend;
  }
  return sum;
}

// The fields of a day or of the month, and the cells that they come from.
struct Period {
  StatsField Impressions, Clicks, Ctr, Earnings, Ecpm;
  RowCell ImpressionsCell, ClicksCell, EarningsCell;
};

constexpr Period kLatestDay{
    &AccountStats::Impressions, &AccountStats::Clicks, &AccountStats::Ctr,
    &AccountStats::Earnings,    &AccountStats::Ecpm,   &RowLayout::Impressions,
    &RowLayout::Clicks,         &RowLayout::Earnings,
};
constexpr Period kMonth{
    &AccountStats::MonthImpressions, &AccountStats::MonthClicks, &AccountStats::MonthCtr,
    &AccountStats::MonthEarnings,    &AccountStats::MonthEcpm,   &RowLayout::MonthImpressions,
    &RowLayout::MonthClicks,         &RowLayout::MonthEarnings,
};

class Merger {
 public:
  Merger(std::span<const ReportRow> rows, const RegionalSettings& region)
      : rows_(rows), region_(region) {}

  AccountStats Merge() {
    Attempt([&] { stats_.ReportDate = rows_.front().At(&RowLayout::ReportDate); });
    MergePeriod(kLatestDay);
    MergePeriod(kMonth);
    return stats_;
  }

 private:
  void MergePeriod(const Period& period) {
    Attempt([&] { stats_.*period.Impressions = CountText(period.ImpressionsCell); });
    Attempt([&] { stats_.*period.Clicks = CountText(period.ClicksCell); });
    Attempt([&] {
      stats_.*period.Ctr =
          CtrText(Quotient(Number(period.Clicks), Number(period.Impressions)), region_);
    });
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      Attempt([&] { amounts_[i] = ToCurrency(rows_[i].At(period.EarningsCell), region_); });
    }
    Attempt([&] { stats_.*period.Earnings = NumberTextOfCurrency(Sum(amounts_), region_); });
    Attempt([&] {
      stats_.*period.Ecpm =
          EcpmText(Quotient(Number(period.Earnings), Number(period.Impressions) / 1000), region_);
    });
  }

  std::string CountText(RowCell cell) const {
    double sum = 0;
    for (const ReportRow& row : rows_) sum += LeadingNumber(row.At(cell));
    return NumberText(sum, region_);
  }

  double Number(StatsField field) const { return ToDouble(stats_.*field, region_); }

  std::span<const ReportRow> rows_;
  const RegionalSettings& region_;
  AccountStats stats_;
  // Kept from the day to the month: an amount that is refused stays what it was.
  std::array<std::int64_t, 3> amounts_{};
};

constexpr std::size_t kDaysOfHistory = 7;

// Half to even.
std::int32_t RoundToLong(double number) {
  using Limits = std::numeric_limits<std::int32_t>;
  const double rounded = std::nearbyint(number);
  if (!(rounded >= Limits::min() && rounded <= Limits::max())) throw StepFailed{};
  return static_cast<std::int32_t>(rounded);
}

}  // namespace

AccountStats FiguresOf(std::span<const ReportRow> rows, const RegionalSettings& region) {
  if (rows.empty()) return {};
  if (rows.size() == 1) return FiguresOfOneReport(rows.front());
  return Merger(rows, region).Merge();
}

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
  if (days.size() > kDaysOfHistory) days.resize(kDaysOfHistory);
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
