#include "api/day_range.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

namespace quillbox {
namespace {

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
