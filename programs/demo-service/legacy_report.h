// A legacy report: which one a request asks for, and its table.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "figures.h"

namespace quillbox {

enum class DateRange { kLast7Days, kThisMonth, kLastMonth, kAllTime };

struct ReportQuery {
  Product Of = Product::kContent;
  DateRange Range = DateRange::kThisMonth;
  bool ByChannel = false;  // a line for each day and channel
};

// Reads "product" (afc, afs, ref), "dateRange.simpleDate" and "reportType"; other keys are ignored.
// Nothing when one of the first two is missing or unknown.
std::optional<ReportQuery> ParseReportQuery(
    const std::multimap<std::string, std::string>& parameters);

// Tab-separated lines, each ended by one line feed: a heading, one line for each day (and channel)
// of the range, oldest first and today last, then two summary lines, totals and averages. 6 cells a
// line; referrals have sign-ups in front of the last two, channel reports the channel behind the
// date. Dates are written yyyy-mm-dd, which reads the same in every region; numbers have no group
// separators, amounts two decimals and no symbol.
std::string ReportTable(const ReportQuery& query, std::uint64_t seed, const std::string& account,
                        const Moment& moment);

}  // namespace quillbox
