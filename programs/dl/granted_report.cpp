#include "granted_report.h"

#include <utility>

#include "api/publisher_accounts.h"
#include "api/report_parts.h"
#include "api/report_query.h"
#include "api/tabbed_report.h"
#include "api/tokens.h"
#include "grant_files.h"
#include "request/limits.h"
#include "system/file_locks.h"
#include "system/watchdog.h"

namespace quillbox {
namespace {

constexpr const char* kOther = "the answer is not the report that was asked for";

ServiceReply Ask(GrantedService& service, const std::string& query) {
  return service.Get(ReportPath(service.Granted().Account, query));
}

// What to say of an answer that came but isn't usable; `asked`: who gave it.
ServiceVerdict NotUsable(const std::string& why, const std::string& asked) {
  ServiceVerdict verdict{ResultCode::kNoAnswer, false, why};
  verdict.Asked = asked;
  return verdict;
}

// `query`: of a question for `report`. The answer may be cut short.
GrantedReport AskForReport(GrantedService& service, const WantedReport& report,
                           const std::string& query) {
  const ServiceReply reply = Ask(service, query);
  if (reply.Verdict.Code != ResultCode::kSuccess) return {reply.Verdict, {}};
  auto answer = ReadReportAnswer(reply.Body, report);
  if (!answer) return {NotUsable(kOther, reply.Verdict.Asked), {}};
  return {reply.Verdict, std::move(*answer)};
}

// The days of an answer to any query.
GrantedReport AskForDays(GrantedService& service, const std::string& query) {
  const ServiceReply reply = Ask(service, query);
  if (reply.Verdict.Code != ResultCode::kSuccess) return {reply.Verdict, {}};
  const auto days = ReadDays(reply.Body);
  if (!days) return {NotUsable(kOther, reply.Verdict.Asked), {}};
  GrantedReport report{reply.Verdict, {}};
  report.Answer.Days = *days;
  return report;
}

// The service allows a hundred a minute. Half of them, each with half of what an answer can hold,
// make a table of the size that is the limit anyway.
constexpr std::size_t kMostQuestions = 64;

// Lines as they come in, part by part.
class Parts {
 public:
  Parts(GrantedService& service, const WantedReport& report) : service_(service), report_(report) {}

  // The whole of what `cut` is a part of.
  GrantedReport Join(GrantedReport cut) {
    const std::vector<DayRange> parts = PartsOf(cut.Answer);
    whole_.Answer = WithoutFigures(std::move(cut.Answer));
    whole_.Verdict = cut.Verdict;
    ServiceVerdict verdict = AddAll(parts);
    if (verdict.Code != ResultCode::kSuccess) return {verdict, {}};
    return std::move(whole_);
  }

 private:
  ServiceVerdict TooLong() const {
    return NotUsable("the report is too long", whole_.Verdict.Asked);
  }

  ServiceVerdict AddAll(const std::vector<DayRange>& parts) {
    if (parts.empty() || asked_ + parts.size() > kMostQuestions) return TooLong();
    for (const DayRange& days : parts) {
      ServiceVerdict verdict = Add(days);
      if (verdict.Code != ResultCode::kSuccess) return verdict;
    }
    return whole_.Verdict;
  }

  ServiceVerdict Add(const DayRange& days) {
    if (++asked_ > kMostQuestions) return TooLong();
    GrantedReport part = AskForReport(service_, report_, PartQuery(report_, days));
    if (part.Verdict.Code != ResultCode::kSuccess) return part.Verdict;
    if (part.Answer.Days != days)
      return NotUsable("the answer is for other days", whole_.Verdict.Asked);
    if (!part.Answer.IsWhole()) {
      const std::vector<DayRange> parts = PartsOf(part.Answer);
      part = {};  // its lines come again
      return AddAll(parts);
    }
    AddPart(whole_.Answer, std::move(part.Answer));
    return BytesOf(whole_.Answer.Lines) > Limits{}.BodyBytes ? TooLong() : whole_.Verdict;
  }

  GrantedService& service_;
  const WantedReport& report_;
  GrantedReport whole_;
  std::size_t asked_ = 1;  // the first answer came before
};

// Asks again, for parts of the days, until every part came whole, and puts them together. `first`:
// the answer for the whole range; one that is whole already, and a failure, come back as they are.
GrantedReport MadeWhole(GrantedService& service, const WantedReport& report, GrantedReport first) {
  if (first.Verdict.Code != ResultCode::kSuccess || first.Answer.IsWhole()) return first;
  return Parts(service, report).Join(std::move(first));
}

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

GrantedService::GrantedService(Session& session, ServiceAddresses addresses, KeptGrant grant)
    : session_(session), addresses_(std::move(addresses)), grant_(std::move(grant)) {}

// A service may take a token back before its time is over.
ServiceReply GrantedService::Get(const std::string& path) {
  const bool hadToken = HasToken();
  ServiceReply reply = Ask(path);
  if (reply.Verdict.Status != 401 || !hadToken || std::exchange(renewed_, true)) return reply;
  token_.clear();
  return Ask(path);
}

ServiceReply GrantedService::Ask(const std::string& path) {
  if (!HasToken()) {
    ServiceVerdict verdict = FetchToken();
    verdict.Asked = addresses_.Token;
    if (verdict.Code != ResultCode::kSuccess) return {verdict, ""};
  }
  ServiceReply reply = AskWithToken(session_, addresses_.Api + path, token_);
  reply.Verdict.Asked = addresses_.Api;
  return reply;
}

// A service may answer with a new grant and take the old one from everybody, so that one run at a
// time exchanges it, from the reading of the file to the writing. What the answer may bring has its
// place on the disk before the question.
ServiceVerdict GrantedService::FetchToken() {
  const FileLock lock(GrantPath(grant_.Folder, grant_.Name), session_.TimeLeft() / 2);
  if (lock.State() == LockState::kTaken) return {ResultCode::kNoAnswer, false, ""};
  auto grant = LoadGrant(grant_.Folder, grant_.Name);
  if (!grant) return {ResultCode::kRefused, false, ""};
  grant_.Content = std::move(*grant);
  GrantPlace place(grant_.Folder, grant_.Name);
  if (!place.IsMade()) {
    return {ResultCode::kNoConnection, false, "There is no room for a grant in " + grant_.Folder};
  }
  return ExchangeGrant(place);
}

ServiceVerdict GrantedService::ExchangeGrant(GrantPlace& place) {
  const ServiceReply reply = AskForToken(session_, addresses_.Token,
                                         RefreshForm(Granted().Client, Granted().RefreshToken));
  return reply.Verdict.Code == ResultCode::kSuccess ? Take(reply, place) : reply.Verdict;
}

ServiceVerdict GrantedService::Take(const ServiceReply& reply, GrantPlace& place) {
  const Unwatched exchange;  // the answer may hold the only grant that is left
  const auto answer = ReadTokenAnswer(reply.Body);
  if (!answer) return {ResultCode::kNoAnswer, false, "the answer holds no access token"};
  token_ = answer->AccessToken;
  tokenEnd_ = answer->Lifetime ? Clock::now() + *answer->Lifetime : Clock::time_point::max();
  if (!answer->RefreshToken.empty() && answer->RefreshToken != Granted().RefreshToken) {
    grant_.Content.RefreshToken = answer->RefreshToken;
    if (!place.Keep(grant_.Content)) {
      return {ResultCode::kNoConnection, false, "The new grant was lost: it could not be written"};
    }
  }
  return reply.Verdict;
}

}  // namespace quillbox
