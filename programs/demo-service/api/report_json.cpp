#include "api/report_json.h"

#include <nlohmann/json.hpp>

namespace quillbox {
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
