// A report, fetched with a grant.
#pragma once

#include <string>

#include "api/wanted_report.h"
#include "fetch.h"
#include "granted_service.h"
#include "report_question.h"

namespace quillbox {

// The whole report, in as many answers as it takes. Where the service refuses the days of "all
// time", those of the last three years.
GrantedReport FetchReport(GrantedService& service, const WantedReport& report);

// The whole way of a run: `grantName` in, the report that `path` (of an address of old) asks for
// out, in the form of old. A grant that isn't there is kRefused, a path that can't be understood
// kNoConnection.
Fetched FetchWithGrant(Session& session, const std::string& grantName, const std::string& path);

}  // namespace quillbox
