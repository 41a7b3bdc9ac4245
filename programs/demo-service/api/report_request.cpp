#include "api/report_request.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <string_view>
#include <tuple>

#include "api/date_ranges.h"

namespace quillbox {
namespace {

using Parameters = std::multimap<std::string, std::string>;

std::vector<std::string> All(const Parameters& parameters, const std::string& name) {
  std::vector<std::string> values;
  const auto [begin, end] = parameters.equal_range(name);
  std::transform(begin, end, std::back_inserter(values), [](const auto& p) { return p.second; });
  return values;
}

// Those that every address of the API takes; the demo looks at none of them.
constexpr std::string_view kCommonParameters[] = {
    "$.xgafv",     "access_token", "alt",       "callback",   "fields",         "key",
    "oauth_token", "prettyPrint",  "quotaUser", "uploadType", "upload_protocol"};

template <typename Column>
const Column* Known(const Column* column, const std::string& name) {
  if (column == nullptr) throw BadReportRequest("\"" + name + "\" is not known here");
  return column;
}

std::vector<std::string> Alternatives(std::string_view text) {
  std::vector<std::string> values;
  while (true) {
    const std::size_t comma = text.find(',');
    values.emplace_back(text.substr(0, comma));
    if (comma == std::string_view::npos) return values;
    text.remove_prefix(comma + 1);
  }
}

ReportFilter ParseFilter(const std::string& text) {
  const std::size_t sign = text.find('=');
  const std::string operation = sign == std::string::npos ? "" : text.substr(sign, 2);
  if (operation != "==" && operation != "=@") {
    throw BadReportRequest("\"" + text + "\" is not a filter");
  }
  const std::string name = text.substr(0, sign);
  return {Known(FindDimension(name), name), operation == "=@", Alternatives(text.substr(sign + 2))};
}

ReportOrder ParseOrder(std::string text, const ReportRequest& request) {
  const bool descending = text.starts_with('-');
  if (descending || text.starts_with('+') || text.starts_with(' ')) text.erase(0, 1);
  std::vector<std::string_view> names;
  for (const Dimension* dimension : request.Dimensions) names.push_back(dimension->Name);
  for (const Metric* metric : request.Metrics) names.push_back(metric->Name);
  const auto found = std::find(names.begin(), names.end(), text);
  if (found == names.end()) throw BadReportRequest("\"" + text + "\" is not in the report");
  return {static_cast<std::size_t>(found - names.begin()), descending};
}

std::size_t ParseLimit(const std::string& text) {
  std::size_t limit = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), limit);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  if (!whole || limit < 1 || limit > kMostRows)
    throw BadReportRequest("limit is not a fitting number");
  return limit;
}

std::string ParseCurrency(const std::string& text) {
  const bool capitals =
      std::all_of(text.begin(), text.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
  if (text.size() != 3 || !capitals) throw BadReportRequest("currencyCode is not a currency");
  return text;
}

void CheckTimeZone(const std::string& text) {
  if (text != "ACCOUNT_TIME_ZONE" && text != "GOOGLE_TIME_ZONE") {
    throw BadReportRequest("reportingTimeZone is not one of the zones");
  }
}

}  // namespace

void CheckParameters(const Parameters& parameters, std::initializer_list<std::string_view> known) {
  const auto isIn = [](const auto& list, const std::string& name) {
    return std::ranges::find(list, name) != std::ranges::end(list);
  };
  for (const auto& [name, value] : parameters) {
    if (!isIn(known, name) && !isIn(kCommonParameters, name)) {
      throw BadReportRequest("there is no parameter \"" + name + "\"");
    }
  }
}

ReportRequest ParseReportRequest(const Parameters& parameters, std::chrono::sys_days today) {
  CheckParameters(parameters, {"dateRange", "startDate.year", "startDate.month", "startDate.day",
                               "endDate.year", "endDate.month", "endDate.day", "dimensions",
                               "metrics", "filters", "orderBy", "limit", "currencyCode",
                               "languageCode", "reportingTimeZone"});
  ReportRequest request;
  std::tie(request.First, request.Last) = ParseDates(parameters, today);
  for (const std::string& name : All(parameters, "dimensions")) {
    request.Dimensions.push_back(Known(FindDimension(name), name));
  }
  for (const std::string& name : All(parameters, "metrics")) {
    request.Metrics.push_back(Known(FindMetric(name), name));
  }
  if (request.Metrics.empty()) throw BadReportRequest("metrics are missing");
  for (const std::string& text : All(parameters, "filters")) {
    request.Filters.push_back(ParseFilter(text));
  }
  for (const std::string& text : All(parameters, "orderBy")) {
    request.Orders.push_back(ParseOrder(text, request));
  }
  for (const std::string& text : All(parameters, "limit")) request.Limit = ParseLimit(text);
  for (const std::string& text : All(parameters, "currencyCode")) {
    request.Currency = ParseCurrency(text);
  }
  for (const std::string& text : All(parameters, "reportingTimeZone")) CheckTimeZone(text);
  return request;
}

}  // namespace quillbox
