#include "granted_report.h"

#include <utility>

#include "api/publisher_accounts.h"
#include "api/report_query.h"
#include "api/tabbed_report.h"
#include "grant_files.h"

namespace quillbox {
namespace {

ServiceVerdict NotUnderstood() {
  return {ResultCode::kNoAnswer, false, "the answer is not the report that was asked for"};
}

ServiceReply AskForReport(GrantedService& service, const std::string& query) {
  return service.Get(ReportPath(service.Granted().Account, query));
}

// The days of a range that the service has no name for; success without an answer for others.
struct NamedDays {
  ServiceVerdict Verdict{ResultCode::kSuccess, false, ""};
  DayRange Days{};
};

NamedDays DaysFor(GrantedService& service, WantedRange range) {
  if (!NeedsToday(range)) return {};
  const ServiceReply reply = AskForReport(service, TodayQuery());
  if (reply.Verdict.Code != ResultCode::kSuccess) return {reply.Verdict, {}};
  const auto today = ReadDays(reply.Body);
  if (!today) return {NotUnderstood(), {}};
  return {reply.Verdict, DaysOf(range, today->Last, service.Granted().Created)};
}

}  // namespace

GrantedReport FetchReport(GrantedService& service, const WantedReport& report) {
  const NamedDays days = DaysFor(service, report.Range);
  if (days.Verdict.Code != ResultCode::kSuccess) return {days.Verdict, {}};
  const ServiceReply reply = AskForReport(service, ReportQuery(report, days.Days));
  if (reply.Verdict.Code != ResultCode::kSuccess) return {reply.Verdict, {}};
  auto answer = ReadReportAnswer(reply.Body, report);
  if (!answer) return {NotUnderstood(), {}};
  return {reply.Verdict, std::move(*answer)};
}

Fetched FetchWithGrant(Session& session, const std::string& grantName, const std::string& path) {
  const auto wanted = ParseWantedReport(path);
  if (!wanted) return {ResultCode::kNoConnection, {}};
  const std::string folder = GrantFolder();
  auto grant = LoadGrant(folder, grantName);
  if (!grant) return {ResultCode::kRefused, {}};
  GrantedService service(session, TheService(), std::move(*grant),
                         [&](const Grant& changed) { SaveGrant(folder, grantName, changed); });
  const GrantedReport report = FetchReport(service, *wanted);
  if (report.Verdict.Code != ResultCode::kSuccess) return {report.Verdict.Code, {}};
  auto table = TabbedReport(*wanted, report.Answer, Limits{}.BodyBytes);
  if (!table) return {ResultCode::kNoAnswer, {}};
  return {ResultCode::kSuccess, std::move(*table)};
}

}  // namespace quillbox
