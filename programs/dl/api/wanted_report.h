// What the program asks for: the address of a legacy report, read.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

enum class WantedProduct { kContent, kSearch, kReferrals };
enum class WantedRange { kLast7Days, kThisMonth, kLastMonth, kAllTime };
enum class CountedBy { kAdUnit, kPage };

struct WantedReport {
  WantedProduct Product = WantedProduct::kContent;
  WantedRange Range = WantedRange::kThisMonth;
  CountedBy Unit = CountedBy::kAdUnit;  // has meaning for content alone
  bool ByChannel = false;               // a line for each day and channel; never for referrals
};

// `path`: the address without scheme and host, "/adsense/report/aggregate?product=afc&..." or
// "/adsense/report/referrals?...". Nothing for another path, and without a known "product" (afc,
// afs, ref) and a known "dateRange.simpleDate". Of "unitPref" everything but "page" means ad units.
std::optional<WantedReport> ParseWantedReport(std::string_view path);

// Days in a row, as the reporting service names them.

// Both days belong to it. They are days of the account's own calendar.
struct DayRange {
  std::chrono::sys_days First, Last;

  bool Holds(std::chrono::sys_days day) const { return First <= day && day <= Last; }
  bool operator==(const DayRange&) const = default;
};

// "2026-11-24" and back. Nothing for other forms, for days that no calendar has, and for years
// before 2000 and after 2199: longer ranges have no meaning in reports.
std::optional<std::chrono::sys_days> ParseDay(std::string_view text);
std::string DayText(std::chrono::sys_days day);

// The part of the days that begins at most three years before the last one.
DayRange LastThreeYears(const DayRange& days);

// Whether the service has no name of its own for the range, so that today, as the account's
// calendar has it, must be known to name its days.
bool NeedsToday(WantedRange range);

// The days of a range that needs today. `created`: the day on which the account came into being.
DayRange DaysOf(WantedRange range, std::chrono::sys_days today,
                std::optional<std::chrono::sys_days> created);

}  // namespace quillbox
