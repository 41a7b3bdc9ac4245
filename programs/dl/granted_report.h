// The reporting service, asked with a grant, and whole reports from it.
#pragma once

#include <chrono>
#include <string>

#include "api/report_answer.h"
#include "api/service_verdict.h"
#include "api/tokens.h"
#include "api/wanted_report.h"
#include "environment.h"
#include "grant_files.h"
#include "request/answer.h"
#include "service_questions.h"
#include "session.h"

namespace quillbox {

// A grant as it was read from its file.
struct KeptGrant {
  std::string Folder, Name;
  Grant Content;
};

class GrantedService {
 public:
  // The file follows when the service puts another grant in the place of this one.
  GrantedService(Session& session, ServiceAddresses addresses, KeptGrant grant);

  const Grant& Granted() const { return grant_.Content; }

  // `path`: "/v2/..." and its query. An access token is fetched first if there is none that still
  // holds, and once more if the service doesn't take an older one; it stays in memory and goes
  // nowhere but to the service. A grant for which the disk has no room isn't used: kNoConnection.
  // The verdict names the address, of the token endpoint or of the API, that was asked last.
  ServiceReply Get(const std::string& path);

 private:
  using Clock = std::chrono::steady_clock;

  bool HasToken() const { return !token_.empty() && Clock::now() < tokenEnd_; }
  ServiceReply Ask(const std::string& path);
  ServiceVerdict FetchToken();
  ServiceVerdict ExchangeGrant(GrantPlace& place);
  ServiceVerdict Take(const ServiceReply& reply, GrantPlace& place);

  Session& session_;
  ServiceAddresses addresses_;
  KeptGrant grant_;
  std::string token_;
  Clock::time_point tokenEnd_;  // by a clock that nobody sets
  bool renewed_ = false;        // for a token that wasn't taken
};

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
