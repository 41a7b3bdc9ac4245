// An answer of the reporting service in the form of a legacy report.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "api/report_answer.h"
#include "api/wanted_report.h"

namespace quillbox {

// Names of channels as cells of a report.

// One cell (code page) for each name (UTF-8), in the same order and no two alike. Characters that
// the code page lacks become "?"; what has a meaning of its own in a report or on the page that is
// made of it (control characters, double quotes, "^", "<", ">", "&") becomes a blank.
std::vector<std::string> ChannelCells(const std::vector<std::string>& names);

// Figures as cells of a report, in the one notation that can be read in every region.

// "1234": no group separators, no decimals.
std::string CountCell(double count);

// "1.52%": always two decimals, so that the first character that isn't a digit is the decimal mark.
std::string PercentCell(double fraction);

// "1234.56": always two decimals, so that the decimal mark is the third character from the end; no
// other marks. A sign would be taken for a group separator, so an amount below zero is "0.00".
std::string MoneyCell(double amount);

// An answer of the reporting service in the form of a legacy report.

// A heading, a line for each day (and channel), oldest first, then totals and averages; cells are
// separated by tabs, each line ends in one line feed, code page. 6 cells a line, with channels 7,
// for referrals 7, all zeros. Every day of the answer has a line, with zeros if the answer has
// none; in "all time" from the first day with figures on. Every channel has a line on every day.
// A channel report of an account without channels is the empty text.
// Nothing when the report would be longer than `mostBytes`.
std::optional<std::string> TabbedReport(const WantedReport& report, const ReportAnswer& answer,
                                        std::size_t mostBytes);

}  // namespace quillbox
