#include "report_answer.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <nlohmann/json.hpp>

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

namespace {

using Json = nlohmann::ordered_json;

Json Headers(const ReportRequest& request, const std::string& currency) {
  Json headers = Json::array();
  for (const Dimension* dimension : request.Dimensions) {
    headers.push_back({{"name", dimension->Name}, {"type", "DIMENSION"}});
  }
  for (const Metric* metric : request.Metrics) {
    headers.push_back({{"name", metric->Name}, {"type", metric->Type}});
    if (metric->Type == "METRIC_CURRENCY") headers.back()["currencyCode"] = currency;
  }
  return headers;
}

Json Row(const ReportCells& cells) {
  Json values = Json::array();
  for (const std::string& cell : cells) values.push_back({{"value", cell}});
  return {{"cells", values}};
}

Json Date(std::chrono::sys_days day) {
  const std::chrono::year_month_day date(day);
  return {{"year", static_cast<int>(date.year())},
          {"month", static_cast<unsigned>(date.month())},
          {"day", static_cast<unsigned>(date.day())}};
}

}  // namespace

std::string ReportJson(const ReportRequest& request, const ReportRows& rows,
                       const std::string& currency, std::vector<std::string> warnings) {
  Json report = {{"totalMatchedRows", std::to_string(rows.Matched)},
                 {"headers", Headers(request, currency)}};
  for (const ReportCells& cells : rows.Rows) report["rows"].push_back(Row(cells));
  report["totals"] = Row(rows.Totals);
  report["averages"] = Row(rows.Averages);
  report["startDate"] = Date(request.First);
  report["endDate"] = Date(request.Last);
  if (rows.Rows.size() < rows.Matched) warnings.emplace_back("The limit has cut rows off.");
  if (!warnings.empty()) report["warnings"] = warnings;
  return report.dump(2) + "\n";
}

}  // namespace quillbox
