#include "granted_report.h"

#include <utility>

#include "api/report_query.h"
#include "api/tabbed_report.h"
#include "grant_files.h"
#include "whole_report.h"

namespace quillbox {
namespace {

constexpr long kBadRequest = 400;  // also for a day that lies too long ago

}  // namespace

GrantedReport FetchReport(GrantedService& service, const WantedReport& report) {
  DayRange days{};  // of a range that the service has no name for
  if (NeedsToday(report.Range)) {
    GrantedReport today = AskForDays(service, TodayQuery());
    if (today.Verdict.Code != ResultCode::kSuccess) return today;
    days = DaysOf(report.Range, today.Answer.Days.Last, service.Granted().Created);
  }
  const auto ask = [&] { return AskForReport(service, report, ReportQuery(report, days)); };
  GrantedReport first = ask();
  if (report.Range == WantedRange::kAllTime && first.Verdict.Status == kBadRequest) {
    const DayRange asked = std::exchange(days, LastThreeYears(days));
    if (days != asked) first = ask();
  }
  return MadeWhole(service, report, std::move(first));
}

Fetched FetchWithGrant(Session& session, const std::string& grantName, const std::string& path) {
  const auto wanted = ParseWantedReport(path);
  if (!wanted) return {ResultCode::kNoConnection, {}};
  const std::string folder = GrantFolder();
  auto grant = LoadGrant(folder, grantName);
  if (!grant) return {ResultCode::kRefused, {}};
  GrantedService service(session, TheService(), {folder, grantName, std::move(*grant)});
  const GrantedReport report = FetchReport(service, *wanted);
  if (report.Verdict.Code != ResultCode::kSuccess) return {report.Verdict.Code, {}};
  auto table = TabbedReport(*wanted, report.Answer, Limits{}.BodyBytes);
  if (!table) return {ResultCode::kNoAnswer, {}};
  return {ResultCode::kSuccess, std::move(*table)};
}

}  // namespace quillbox
