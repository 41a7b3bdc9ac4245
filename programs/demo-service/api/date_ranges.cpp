#include "api/date_ranges.h"

#include <charconv>

#include "api/report_request.h"

namespace quillbox {
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

}  // namespace

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

}  // namespace quillbox
