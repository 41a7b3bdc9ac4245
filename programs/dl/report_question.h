// One question for a report, and its one answer.
#pragma once

#include <string>

#include "api/report_answer.h"
#include "api/service_verdict.h"
#include "api/wanted_report.h"
#include "granted_service.h"

namespace quillbox {

struct GrantedReport {
  ServiceVerdict Verdict;
  ReportAnswer Answer;  // has meaning with success alone
};

// `query`: of a question for `report`. The answer may be cut short.
GrantedReport AskForReport(GrantedService& service, const WantedReport& report,
                           const std::string& query);

// The days of an answer to any query.
GrantedReport AskForDays(GrantedService& service, const std::string& query);

// What to say of an answer that came but isn't usable; `asked`: who gave it.
ServiceVerdict NotUsable(const std::string& why, const std::string& asked);

}  // namespace quillbox
