// What an answer of the current API means for the run.
#pragma once

#include <string>

#include "request/answer.h"

namespace quillbox {

// Whose affair a refusal is: the account's, or that of the program as it is registered with the
// service, which no new grant mends: its registration as such, or a quota.
enum class Concerns { kAccount, kRegistration, kQuota };

struct ServiceVerdict {
  ResultCode Code = ResultCode::kNoAnswer;
  bool WorthRepeating = false;  // a quota or a fault of the server: it may pass in a moment
  // What the service says of a refusal or fault, for people (UTF-8): "429 RESOURCE_EXHAUSTED:
  // ...". It may repeat what it was sent. Empty for success and failed transfers.
  std::string Words;
  // The address that was asked, without its query; empty where that is not known.
  std::string Asked = {};
  long Status = 0;  // of HTTP; 0 where no answer came
  Concerns Whom = Concerns::kAccount;
};

// Reads both forms of errors, {"error": "invalid_grant", ...} of the token endpoint and
// {"error": {"code": ..., "status": ..., "message": ...}} of the reporting API. A grant or client
// that isn't accepted, and 401 and 403 that are not about quotas, give kRefused; quotas (429 too)
// and 5xx give kNoAnswer, worth repeating; every other status but 200 to 299 gives kNoAnswer.
ServiceVerdict JudgeServiceAnswer(const Answer& answer);

}  // namespace quillbox
