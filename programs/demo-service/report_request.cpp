#include "report_request.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <tuple>
#include <utility>

namespace quillbox {
namespace {

std::string MonthText(const Combination& c) {
  return DateText(c.Day).substr(0, 7);
}

constexpr std::string_view kChannelName = "CUSTOM_CHANNEL_NAME";
constexpr std::string_view kChannelId = "CUSTOM_CHANNEL_ID";

std::string ChannelId(const Combination& c) {
  const auto place = std::ranges::find(kChannels, c.Channel) - kChannels.begin();
  return "channel-" + std::to_string(place + 1);
}

const Dimension kDimensions[] = {
    {"DATE", [](const Combination& c) { return DateText(c.Day); }},
    {"MONTH", MonthText},
    {"PRODUCT_CODE",
     [](const Combination& c) { return std::string(c.Of == Product::kSearch ? "AFS" : "AFC"); }},
    {"PRODUCT_NAME",
     [](const Combination& c) {
       return std::string(c.Of == Product::kSearch ? "AdSense for Search" : "AdSense for Content");
     }},
    {kChannelName, [](const Combination& c) { return std::string(c.Channel); }},
    {kChannelId, ChannelId},
};

std::string Impressions(const DayFigures& figures) {
  return std::to_string(figures.Impressions);
}

// Four decimals.
std::string ClickRate(const DayFigures& figures) {
  const std::int64_t rate = Ratio(figures.Clicks, 10'000, figures.Impressions);
  const std::string digits = std::to_string(10'000 + rate % 10'000);
  return std::to_string(rate / 10'000) + "." + digits.substr(1);
}

std::string PerThousand(const DayFigures& figures) {
  return Hundredths(Ratio(figures.EarningsCents, 1000, figures.Impressions));
}

const Metric kMetrics[] = {
    {"PAGE_VIEWS", "METRIC_TALLY", Impressions},
    {"AD_REQUESTS", "METRIC_TALLY", Impressions},
    {"IMPRESSIONS", "METRIC_TALLY", Impressions},
    {"CLICKS", "METRIC_TALLY", [](const DayFigures& f) { return std::to_string(f.Clicks); }},
    {"PAGE_VIEWS_CTR", "METRIC_RATIO", ClickRate},
    {"AD_REQUESTS_CTR", "METRIC_RATIO", ClickRate},
    {"IMPRESSIONS_CTR", "METRIC_RATIO", ClickRate},
    {"PAGE_VIEWS_RPM", "METRIC_CURRENCY", PerThousand},
    {"AD_REQUESTS_RPM", "METRIC_CURRENCY", PerThousand},
    {"IMPRESSIONS_RPM", "METRIC_CURRENCY", PerThousand},
    {"COST_PER_CLICK", "METRIC_CURRENCY",
     [](const DayFigures& f) { return Hundredths(Ratio(f.EarningsCents, 1, f.Clicks)); }},
    {"ESTIMATED_EARNINGS", "METRIC_CURRENCY",
     [](const DayFigures& f) { return Hundredths(f.EarningsCents); }},
};

template <typename Column>
const Column* Find(const Column* begin, const Column* end, std::string_view name) {
  const Column* const found =
      std::find_if(begin, end, [&](const Column& column) { return column.Name == name; });
  return found == end ? nullptr : found;
}

}  // namespace

const Dimension* FindDimension(std::string_view name) {
  return Find(std::begin(kDimensions), std::end(kDimensions), name);
}

const Metric* FindMetric(std::string_view name) {
  return Find(std::begin(kMetrics), std::end(kMetrics), name);
}

bool ConcernsChannels(const Dimension& dimension) {
  return dimension.Name == kChannelName || dimension.Name == kChannelId;
}

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;
using Parameters = std::multimap<std::string, std::string>;

int DatePart(const Parameters& parameters, const std::string& name) {
  const auto found = parameters.find(name);
  if (found == parameters.end()) throw BadReportRequest(name + " is missing");
  const std::string& text = found->second;
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  if (!whole || number < 1 || number > 9999) throw BadReportRequest(name + " is not a number");
  return number;
}

sys_days DateOf(const Parameters& parameters, const std::string& name) {
  const year_month_day date(
      std::chrono::year(DatePart(parameters, name + ".year")),
      std::chrono::month(static_cast<unsigned>(DatePart(parameters, name + ".month"))),
      std::chrono::day(static_cast<unsigned>(DatePart(parameters, name + ".day"))));
  if (!date.ok()) throw BadReportRequest(name + " is not a date");
  return date;
}

// First and last day; from "dateRange" and, with CUSTOM or without any, "startDate" and "endDate".
std::pair<sys_days, sys_days> ParseDates(const Parameters& parameters, sys_days today) {
  const auto found = parameters.find("dateRange");
  const std::string range = found == parameters.end() ? "CUSTOM" : found->second;
  const year_month_day date(today);
  const sys_days yesterday = today - days(1);
  if (range == "TODAY") return {today, today};
  if (range == "YESTERDAY") return {yesterday, yesterday};
  if (range == "MONTH_TO_DATE") return {date.year() / date.month() / 1, today};
  if (range == "YEAR_TO_DATE") return {date.year() / std::chrono::January / 1, today};
  if (range == "LAST_7_DAYS") return {today - days(7), yesterday};
  if (range == "LAST_30_DAYS") return {today - days(30), yesterday};
  if (range != "CUSTOM") throw BadReportRequest("dateRange is not one of the ranges");
  const std::pair<sys_days, sys_days> dates(DateOf(parameters, "startDate"),
                                            DateOf(parameters, "endDate"));
  if (dates.second < dates.first) throw BadReportRequest("endDate lies before startDate");
  return dates;
}

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
