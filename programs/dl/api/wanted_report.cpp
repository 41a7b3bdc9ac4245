#include "api/wanted_report.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <utility>

namespace quillbox {
namespace {

constexpr std::string_view kAggregate = "/adsense/report/aggregate";
constexpr std::string_view kReferrals = "/adsense/report/referrals";

template <typename Choice>
using Choices = std::initializer_list<std::pair<std::string_view, Choice>>;

template <typename Choice>
std::optional<Choice> Choose(std::string_view text, Choices<Choice> choices) {
  for (const auto& [name, choice] : choices) {
    if (text == name) return choice;
  }
  return std::nullopt;
}

// The value of the first "key=value", empty without one.
std::string_view Value(std::string_view query, std::string_view key) {
  while (!query.empty()) {
    const std::string_view pair = query.substr(0, query.find('&'));
    query.remove_prefix(std::min(pair.size() + 1, query.size()));
    if (pair.starts_with(key) && pair.substr(key.size()).starts_with('=')) {
      return pair.substr(key.size() + 1);
    }
  }
  return {};
}

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

// The service didn't exist before; used when it doesn't tell an account's age.
constexpr sys_days kEarliest = year(2003) / 1 / 1;

std::optional<unsigned> Number(std::string_view digits) {
  unsigned number = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, number);
  return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

}  // namespace

std::optional<WantedReport> ParseWantedReport(std::string_view path) {
  const std::size_t cut = path.find('?');
  if (cut == std::string_view::npos) return std::nullopt;
  if (path.substr(0, cut) != kAggregate && path.substr(0, cut) != kReferrals) return std::nullopt;
  const std::string_view query = path.substr(cut + 1);
  const auto product =
      Choose<WantedProduct>(Value(query, "product"), {{"afc", WantedProduct::kContent},
                                                      {"afs", WantedProduct::kSearch},
                                                      {"ref", WantedProduct::kReferrals}});
  const auto range = Choose<WantedRange>(Value(query, "dateRange.simpleDate"),
                                         {{"last7days", WantedRange::kLast7Days},
                                          {"thismonth", WantedRange::kThisMonth},
                                          {"lastmonth", WantedRange::kLastMonth},
                                          {"alltime", WantedRange::kAllTime}});
  if (!product || !range) return std::nullopt;
  return WantedReport{
      .Product = *product,
      .Range = *range,
      .Unit = Value(query, "unitPref") == "page" ? CountedBy::kPage : CountedBy::kAdUnit,
      .ByChannel =
          *product != WantedProduct::kReferrals && Value(query, "reportType") == "channel"};
}

std::optional<sys_days> ParseDay(std::string_view text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
  const auto yearNumber = Number(text.substr(0, 4));
  const auto month = Number(text.substr(5, 2));
  const auto day = Number(text.substr(8));
  if (!yearNumber || !month || !day) return std::nullopt;
  const year_month_day date(year(static_cast<int>(*yearNumber)), std::chrono::month(*month),
                            std::chrono::day(*day));
  if (!date.ok() || date.year() < year(2000) || date.year() > year(2199)) return std::nullopt;
  return sys_days(date);
}

std::string DayText(sys_days day) {
  const year_month_day date(day);
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
  return text;
}

DayRange LastThreeYears(const DayRange& range) {
  return {std::max(range.First, range.Last - 3 * days(365)), range.Last};
}

bool NeedsToday(WantedRange range) {
  return range == WantedRange::kLastMonth || range == WantedRange::kAllTime;
}

DayRange DaysOf(WantedRange range, sys_days today, std::optional<sys_days> created) {
  if (range == WantedRange::kAllTime) {
    // In the account's calendar it may have been the day before.
    const sys_days first = created ? *created - days(1) : kEarliest;
    return {std::min(first, today), today};
  }
  const year_month_day date(today);
  const sys_days monthStart = date.year() / date.month() / 1;
  const year_month_day last(monthStart - days(1));
  return {last.year() / last.month() / 1, last};
}

}  // namespace quillbox
