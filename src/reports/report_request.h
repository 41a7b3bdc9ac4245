// From the choices in the Reports window to what the fetch program is asked.
#pragma once

#include <string>
#include <string_view>

#include "config/application_folder.h"
#include "reports/report_titles.h"
#include "retrieval/refresh_commands.h"

namespace quillbox {

struct ReportRequest {
  ReportFamily Family = ReportFamily::kAd;
  std::string UnitPref;    // "adunit" or "page"; referrals have no use for it
  std::string SimpleDate;  // "last7days"
};

// `range` and `unit` are items of their lists: "Last 7 Days", "Individual Ad Unit".
ReportRequest ReportRequestOf(const ReportTitle& title, std::string_view range,
                              std::string_view unit);

// Full paths of the window's two working files. They are not those of a refresh.
ReportFiles WindowReportFiles(const ApplicationFolder& folder);

// What the agent is given (SignedInCommand).
std::string ReportCommand(const ReportRequest& request, std::string_view username,
                          std::string_view password, std::string_view serviceHost,
                          const ApplicationFolder& folder);

}  // namespace quillbox
