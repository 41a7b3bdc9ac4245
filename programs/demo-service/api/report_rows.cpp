#include "api/report_rows.h"

#include <algorithm>
#include <cstdlib>
#include <map>

#include "reports/figure_sources.h"

namespace quillbox {
namespace {

using std::chrono::days;
using std::chrono::sys_days;

using FiguresByRow = std::map<ReportCells, DayFigures>;

bool Fits(const ReportFilter& filter, const Combination& combination) {
  const std::string text = filter.Of->Text(combination);
  return std::any_of(filter.Values.begin(), filter.Values.end(), [&](const std::string& value) {
    return filter.Part ? text.find(value) != std::string::npos : text == value;
  });
}

bool FitsAll(const ReportRequest& request, const Combination& combination) {
  return std::all_of(request.Filters.begin(), request.Filters.end(),
                     [&](const ReportFilter& filter) { return Fits(filter, combination); });
}

std::vector<std::string_view> ChannelsOf(const ReportRequest& request) {
  const bool asked =
      std::any_of(request.Dimensions.begin(), request.Dimensions.end(),
                  [](const Dimension* dimension) { return ConcernsChannels(*dimension); }) ||
      std::any_of(request.Filters.begin(), request.Filters.end(),
                  [](const ReportFilter& filter) { return ConcernsChannels(*filter.Of); });
  if (!asked) return {""};
  return {kChannels.begin(), kChannels.end()};
}

// Every combination of the range that can have figures.
std::vector<Combination> Combinations(const ReportRequest& request, sys_days today) {
  std::vector<Combination> combinations;
  const std::vector<std::string_view> channels = ChannelsOf(request);
  const sys_days last = std::min(request.Last, today);
  for (sys_days day = std::max(request.First, today - kOldestFigures); day <= last;
       day += days(1)) {
    for (const Product product : {Product::kContent, Product::kSearch}) {
      for (const std::string_view channel : channels) {
        combinations.push_back({day, product, channel});
      }
    }
  }
  return combinations;
}

ReportCells Cells(const ReportRequest& request, ReportCells cells, const DayFigures& figures) {
  cells.resize(request.Dimensions.size());
  for (const Metric* metric : request.Metrics) cells.push_back(metric->Text(figures));
  return cells;
}

// Dimensions are texts, metrics numbers.
bool ComesFirst(const ReportRequest& request, const ReportCells& a, const ReportCells& b) {
  for (const auto& [column, descending] : request.Orders) {
    if (a[column] == b[column]) continue;
    const bool less = column < request.Dimensions.size()
                          ? a[column] < b[column]
                          : std::atof(a[column].c_str()) < std::atof(b[column].c_str());
    return less != descending;
  }
  return false;
}

}  // namespace

ReportRows MakeReportRows(const ReportRequest& request, std::uint64_t seed,
                          const std::string& account, const Moment& moment) {
  FiguresByRow figures;
  DayFigures sum;
  for (const Combination& combination : Combinations(request, moment.Today)) {
    if (account.empty() || !FitsAll(request, combination)) continue;
    const DayFigures its =
        FiguresOfDay(seed, SourceName(account, combination.Of, combination.Channel),
                     combination.Day, moment.GrownOn(combination.Day));
    if (its == DayFigures{}) continue;
    ReportCells dimensions;
    for (const Dimension* dimension : request.Dimensions) {
      dimensions.push_back(dimension->Text(combination));
    }
    figures[dimensions] += its;
    sum += its;
  }
  ReportRows rows;
  for (const auto& [dimensions, its] : figures)
    rows.Rows.push_back(Cells(request, dimensions, its));
  std::stable_sort(rows.Rows.begin(), rows.Rows.end(),
                   [&](const auto& a, const auto& b) { return ComesFirst(request, a, b); });
  rows.Matched = rows.Rows.size();
  rows.Rows.resize(std::min(rows.Matched, request.Limit));
  rows.Totals = Cells(request, {}, sum);
  rows.Averages = Cells(request, {}, sum / ((request.Last - request.First).count() + 1));
  return rows;
}

}  // namespace quillbox
