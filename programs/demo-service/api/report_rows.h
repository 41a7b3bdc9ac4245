// The rows of a report of the API, worked out.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "api/report_request.h"
#include "reports/moment.h"

namespace quillbox {

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

}  // namespace quillbox
