// A report of the API as it is sent.
#pragma once

#include <string>
#include <vector>

#include "api/report_rows.h"

namespace quillbox {

// `currency`: of the amounts. One more warning is added when the limit has cut rows off.
std::string ReportJson(const ReportRequest& request, const ReportRows& rows,
                       const std::string& currency, std::vector<std::string> warnings);

}  // namespace quillbox
