#include "api/service_verdict.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "api/json.h"

namespace quillbox {
namespace {

struct Fault {
  std::vector<std::string> Names;  // of the kind of error, the most general first
  std::string Message;
};

bool IsOneOf(const std::string& name, std::initializer_list<std::string_view> names) {
  return std::ranges::find(names, name) != names.end();
}

bool IsQuota(const std::string& name) {
  return IsOneOf(name, {"RESOURCE_EXHAUSTED", "RATE_LIMIT_EXCEEDED", "rateLimitExceeded",
                        "userRateLimitExceeded", "quotaExceeded", "dailyLimitExceeded"});
}

bool IsRefusal(const std::string& name) {
  return IsOneOf(name, {"invalid_grant", "invalid_client", "unauthorized_client", "access_denied",
                        "UNAUTHENTICATED", "PERMISSION_DENIED"});
}

void AddReasons(const Json& error, const char* list, std::vector<std::string>& names) {
  const Json::array_t* const entries = ArrayMember(error, list);
  if (entries == nullptr) return;
  for (const Json& entry : *entries) {
    if (std::string reason = TextMember(entry, "reason"); !reason.empty()) names.push_back(reason);
  }
}

Fault ReadFault(std::string_view body) {
  const auto document = ParseObject(body);
  if (!document) return {};
  Fault fault;
  const Json* const error = Member(*document, "error");
  if (error == nullptr) return fault;
  if (error->is_string()) {
    fault.Names.push_back(error->get<std::string>());
    fault.Message = TextMember(*document, "error_description");
    return fault;
  }
  fault.Names.push_back(TextMember(*error, "status"));
  AddReasons(*error, "errors", fault.Names);
  AddReasons(*error, "details", fault.Names);
  fault.Message = TextMember(*error, "message");
  return fault;
}

std::string WordsOf(long status, const Fault& fault) {
  std::string words = std::to_string(status);
  if (!fault.Names.empty() && !fault.Names.front().empty()) words += " " + fault.Names.front();
  if (!fault.Message.empty()) words += ": " + fault.Message;
  return words;
}

}  // namespace

ServiceVerdict JudgeServiceAnswer(const Answer& answer) {
  const ResultCode code = JudgeAnswer(answer);
  if (answer.Outcome != Transfer::kComplete || code == ResultCode::kSuccess) {
    return {code, false, ""};
  }
  const Fault fault = ReadFault(answer.Body);
  const std::string words = WordsOf(answer.Status, fault);
  if (answer.Status == 429 || answer.Status >= 500 || std::ranges::any_of(fault.Names, IsQuota)) {
    return {ResultCode::kNoAnswer, true, words};
  }
  if (std::ranges::any_of(fault.Names, IsRefusal)) return {ResultCode::kRefused, false, words};
  return {code, false, words};
}

}  // namespace quillbox
