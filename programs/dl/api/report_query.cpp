#include "api/report_query.h"

#include <utility>

#include "text/escaping.h"

namespace quillbox {
namespace {

using std::chrono::sys_days;
using std::chrono::year_month_day;

void Add(std::string& query, std::string_view key, std::string_view value) {
  if (!query.empty()) query += '&';
  query.append(key).append("=").append(PercentEncode(value));
}

void AddDay(std::string& query, const std::string& key, sys_days day) {
  const year_month_day date(day);
  Add(query, key + ".year", std::to_string(static_cast<int>(date.year())));
  Add(query, key + ".month", std::to_string(static_cast<unsigned>(date.month())));
  Add(query, key + ".day", std::to_string(static_cast<unsigned>(date.day())));
}

std::string NamedRange(WantedRange range) {
  std::string query;
  Add(query, "dateRange", range == WantedRange::kLast7Days ? "LAST_7_DAYS" : "MONTH_TO_DATE");
  return query;
}

std::string CustomRange(const DayRange& range) {
  std::string query;
  Add(query, "dateRange", "CUSTOM");
  AddDay(query, "startDate", range.First);
  AddDay(query, "endDate", range.Last);
  return query;
}

// Both are given a query that begins with the range. This one asks which days that has; a query
// needs a metric.
std::string AskingForDays(std::string query) {
  Add(query, "reportingTimeZone", "ACCOUNT_TIME_ZONE");
  Add(query, "metrics", kClicksColumn);
  return query;
}

std::string AskingFor(const WantedReport& report, std::string query) {
  if (report.Product == WantedProduct::kReferrals) return AskingForDays(std::move(query));
  Add(query, "reportingTimeZone", "ACCOUNT_TIME_ZONE");
  Add(query, "dimensions", kDayColumn);
  if (report.ByChannel) {
    Add(query, "dimensions", kChannelColumn);
    Add(query, "dimensions", kChannelIdColumn);
  }
  const RateColumns rates = RateColumnsOf(report);
  for (const std::string_view metric :
       {rates.Count, kClicksColumn, rates.Ctr, rates.Rpm, kEarningsColumn}) {
    Add(query, "metrics", metric);
  }
  const bool search = report.Product == WantedProduct::kSearch;
  Add(query, "filters", search ? "PRODUCT_CODE==AFS" : "PRODUCT_CODE==AFC");
  Add(query, "orderBy", kDayColumn);
  return query;
}

}  // namespace

RateColumns RateColumnsOf(const WantedReport& report) {
  // For search an ad request is a query, which is what the search report counts.
  if (report.Product == WantedProduct::kSearch) {
    return {"AD_REQUESTS", "AD_REQUESTS_CTR", "AD_REQUESTS_RPM"};
  }
  if (report.Unit == CountedBy::kPage) return {"PAGE_VIEWS", "PAGE_VIEWS_CTR", "PAGE_VIEWS_RPM"};
  return {"IMPRESSIONS", "IMPRESSIONS_CTR", "IMPRESSIONS_RPM"};
}

std::string TodayQuery() {
  std::string query;
  Add(query, "dateRange", "TODAY");
  return AskingForDays(std::move(query));
}

std::string ReportQuery(const WantedReport& report, const DayRange& days) {
  return NeedsToday(report.Range) ? PartQuery(report, days)
                                  : AskingFor(report, NamedRange(report.Range));
}

std::string PartQuery(const WantedReport& report, const DayRange& days) {
  return AskingFor(report, CustomRange(days));
}

}  // namespace quillbox
