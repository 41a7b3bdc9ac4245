// The dates that a request to the API's reports names.
#pragma once

#include <chrono>
#include <map>
#include <string>
#include <utility>

namespace quillbox {

// First and last day; from "dateRange" and, with CUSTOM or without any, "startDate" and "endDate".
// Throws BadReportRequest.
std::pair<std::chrono::sys_days, std::chrono::sys_days> ParseDates(
    const std::multimap<std::string, std::string>& parameters, std::chrono::sys_days today);

}  // namespace quillbox
