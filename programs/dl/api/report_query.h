// The queries to `reports:generate`, and the columns that they ask for.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "api/wanted_report.h"

namespace quillbox {

// Which columns of the reporting service make the columns of a legacy report.

inline constexpr std::string_view kDayColumn = "DATE";
inline constexpr std::string_view kChannelColumn = "CUSTOM_CHANNEL_NAME";
inline constexpr std::string_view kChannelIdColumn = "CUSTOM_CHANNEL_ID";  // two can share a name
inline constexpr std::string_view kClicksColumn = "CLICKS";
inline constexpr std::string_view kEarningsColumn = "ESTIMATED_EARNINGS";

// Names of metrics.
struct RateColumns {
  std::string_view Count;  // what clicks and earnings are related to
  std::string_view Ctr;    // clicks for each of it, a fraction
  std::string_view Rpm;    // earnings for a thousand of it
};

// For content and search; referrals have none.
RateColumns RateColumnsOf(const WantedReport& report);

// The queries to `reports:generate`.

// A report of no figures, whose answer says what today is for the account.
std::string TodayQuery();

// `days`: for the ranges that need today (NeedsToday); not looked at for others. The query of
// referrals, which the service no longer has, asks only which days the range has.
std::string ReportQuery(const WantedReport& report, const DayRange& days);

// The same for some days of the range alone.
std::string PartQuery(const WantedReport& report, const DayRange& days);

}  // namespace quillbox
