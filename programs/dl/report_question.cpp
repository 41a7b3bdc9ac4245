#include "report_question.h"

#include <utility>

#include "api/publisher_accounts.h"

namespace quillbox {
namespace {

constexpr const char* kOther = "the answer is not the report that was asked for";

ServiceReply Ask(GrantedService& service, const std::string& query) {
  return service.Get(ReportPath(service.Granted().Account, query));
}

}  // namespace

GrantedReport AskForReport(GrantedService& service, const WantedReport& report,
                           const std::string& query) {
  const ServiceReply reply = Ask(service, query);
  if (reply.Verdict.Code != ResultCode::kSuccess) return {reply.Verdict, {}};
  auto answer = ReadReportAnswer(reply.Body, report);
  if (!answer) return {NotUsable(kOther, reply.Verdict.Asked), {}};
  return {reply.Verdict, std::move(*answer)};
}

GrantedReport AskForDays(GrantedService& service, const std::string& query) {
  const ServiceReply reply = Ask(service, query);
  if (reply.Verdict.Code != ResultCode::kSuccess) return {reply.Verdict, {}};
  const auto days = ReadDays(reply.Body);
  if (!days) return {NotUsable(kOther, reply.Verdict.Asked), {}};
  GrantedReport report{reply.Verdict, {}};
  report.Answer.Days = *days;
  return report;
}

ServiceVerdict NotUsable(const std::string& why, const std::string& asked) {
  ServiceVerdict verdict{ResultCode::kNoAnswer, false, why};
  verdict.Asked = asked;
  return verdict;
}

}  // namespace quillbox
