// A report of the API: its rows worked out, and as it is sent.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "figures.h"
#include "report_request.h"

namespace quillbox {

// The rows of a report of the API, worked out.
using ReportCells = std::vector<std::string>;  // dimensions first, then metrics

struct ReportRows {
  std::vector<ReportCells> Rows;  // ordered and cut to the limit
  std::size_t Matched = 0;        // before the limit
  ReportCells Totals;             // of all matched rows, the dimensions' cells empty
  ReportCells Averages;           // likewise, for each day of the range
};

// Combinations without any figures make no row. `account`: whose figures; empty for one that never
// had any.
ReportRows MakeReportRows(const ReportRequest& request, std::uint64_t seed,
                          const std::string& account, const Moment& moment);

// In JSON. `currency`: of the amounts. One more warning is added when the limit has cut rows off.
std::string ReportJson(const ReportRequest& request, const ReportRows& rows,
                       const std::string& currency, std::vector<std::string> warnings);

}  // namespace quillbox
