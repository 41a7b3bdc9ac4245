// The page that draws a report's graph.
#pragma once

#include <string>
#include <string_view>

#include "reports/report_data.h"

namespace quillbox {

// One line, without a line end. `title` is the report's title; `period` and `comma` are the
// region's decimal mark and group mark. Nothing is escaped. All in the code page.
std::string BuildReportPage(const ReportData& data, std::string_view title, std::string_view period,
                            std::string_view comma);

}  // namespace quillbox
