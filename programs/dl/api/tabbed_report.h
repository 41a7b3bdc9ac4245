// An answer of the reporting service in the form of a legacy report.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "api/report_answer.h"
#include "api/wanted_report.h"

namespace quillbox {

// A heading, a line for each day (and channel), oldest first, then totals and averages; cells are
// separated by tabs, each line ends in one line feed, code page. 6 cells a line, with channels 7,
// for referrals 7, all zeros. Every day of the answer has a line, with zeros if the answer has
// none; in "all time" from the first day with figures on. Every channel has a line on every day.
// A channel report of an account without channels is the empty text.
// Nothing when the report would be longer than `mostBytes`.
std::optional<std::string> TabbedReport(const WantedReport& report, const ReportAnswer& answer,
                                        std::size_t mostBytes);

}  // namespace quillbox
