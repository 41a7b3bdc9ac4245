#include "api/service_verdict.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <string_view>
#include <vector>

#include "api/json.h"
#include "text/code_page.h"

namespace quillbox {
namespace {

struct Fault {
  std::vector<std::string> Names;  // of the kind of error, the most general first
  std::string Message;
};

bool IsOneOf(const std::string& name, std::initializer_list<std::string_view> names) {
  return std::ranges::find(names, name) != names.end();
}

// "RATE_LIMIT_EXCEEDED", "userRateLimitExceeded", "dailyLimitExceededUnreg", "quotaExceeded", ...
bool IsQuota(const std::string& name) {
  std::string letters;
  std::ranges::copy_if(name, std::back_inserter(letters), [](char c) { return c != '_'; });
  letters = UpperCase(letters);
  return letters == "RESOURCEEXHAUSTED" || letters.find("QUOTA") != std::string::npos ||
         letters.find("LIMITEXCEEDED") != std::string::npos;
}

bool IsAboutRegistration(const std::string& name) {
  return IsOneOf(name, {"SERVICE_DISABLED", "accessNotConfigured", "CONSUMER_INVALID",
                        "CONSUMER_SUSPENDED", "BILLING_DISABLED", "USER_PROJECT_DENIED"});
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
  if (fault.Names.size() > 1) words += " (" + fault.Names.back() + ")";
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
  ServiceVerdict verdict{code, false, WordsOf(answer.Status, fault)};
  verdict.Status = answer.Status;
  const bool quota = answer.Status == 429 || std::ranges::any_of(fault.Names, IsQuota);
  if (quota || answer.Status >= 500) {
    verdict.Code = ResultCode::kNoAnswer;
    verdict.WorthRepeating = true;
    if (quota) verdict.Whom = Concerns::kQuota;
  } else if (std::ranges::any_of(fault.Names, IsRefusal)) {
    verdict.Code = ResultCode::kRefused;
  }
  if (std::ranges::any_of(fault.Names, IsAboutRegistration)) verdict.Whom = Concerns::kRegistration;
  return verdict;
}

}  // namespace quillbox
