// A report, fetched with a grant.
#pragma once

#include <string>

#include "api/report_answer.h"
#include "api/service_verdict.h"
#include "api/wanted_report.h"
#include "granted_service.h"
#include "request/answer.h"

namespace quillbox {

struct GrantedReport {
  ServiceVerdict Verdict;
  ReportAnswer Answer;  // has meaning with success alone
};

// The whole report, in as many answers as it takes. Where the service refuses the days of "all
// time", those of the last three years. A report that is too long for one answer is asked for in
// parts of its days. kNoAnswer when a single day is too long, when it would take more than 64
// questions, or when the lines would take more than the largest body (64 MiB).
GrantedReport FetchReport(GrantedService& service, const WantedReport& report);

// The whole way of a run: `grantName` in, the report that `path` (of an address of old) asks for
// out, in the form of old. A grant that isn't there is kRefused, a path that can't be understood
// kNoConnection.
Fetched FetchWithGrant(Session& session, const std::string& grantName, const std::string& path);

}  // namespace quillbox
