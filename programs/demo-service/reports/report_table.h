// A report as the service sends it: tab-separated lines, each ended by one line feed.
#pragma once

#include <cstdint>
#include <string>

#include "reports/moment.h"
#include "reports/report_query.h"

namespace quillbox {

// A heading, one line for each day (and channel) of the range, oldest first and today last, then
// two summary lines, totals and averages. 6 cells a line; referrals have sign-ups in front of the
// last two, channel reports the channel behind the date. Dates are written yyyy-mm-dd, which reads
// the same in every region; numbers have no group separators, amounts two decimals and no symbol.
std::string ReportTable(const ReportQuery& query, std::uint64_t seed, const std::string& account,
                        const Moment& moment);

}  // namespace quillbox
