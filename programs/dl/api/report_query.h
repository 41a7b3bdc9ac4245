// The queries to `reports:generate`.
#pragma once

#include <optional>
#include <string>

#include "api/day_range.h"
#include "api/wanted_report.h"

namespace quillbox {

// A report of no figures, whose answer says what today is for the account.
std::string TodayQuery();

// `days`: for the ranges that need today (NeedsToday); not looked at for others. The query of
// referrals, which the service no longer has, asks only which days the range has.
std::string ReportQuery(const WantedReport& report, const DayRange& days);

// The same for some days of the range alone.
std::string PartQuery(const WantedReport& report, const DayRange& days);

}  // namespace quillbox
