// Anything that a service, a browser or a file may say to the fetch program: whatever is understood
// stays within what is promised.
#include "api/publisher_accounts.h"
#include "api/report_query.h"
#include "api/service_verdict.h"
#include "api/tabbed_report.h"
#include "api/tokens.h"
#include "fuzz/fuzz_input.h"
#include "oauth/consent.h"
#include "text/grant_name.h"

namespace {

using namespace quillbox;

// Lines of equal many cells, each ended by a line feed, at least three of them; or nothing at all.
void CheckTable(const std::string& table, std::size_t cells) {
  if (table.empty()) return;
  Require(table.ends_with('\n') && table.size() <= 100'200);
  Require(std::ranges::count(table, '\n') >= 3);
  Require(table.find_first_of("\"\r^<>") == std::string::npos);
  std::size_t tabs = 0;
  for (const char c : table) {
    if (c == '\t') ++tabs;
    if (c != '\n') continue;
    Require(tabs + 1 == cells);
    tabs = 0;
  }
}

void CheckReport(std::string_view text, const WantedReport& report) {
  const auto answer = ReadReportAnswer(text, report);
  if (!answer) return;
  Require(ReadDays(text).has_value() && answer->Days.First <= answer->Days.Last);
  for (const ReportLine& line : answer->Lines) Require(answer->Days.Holds(line.Day));
  const auto table = TabbedReport(report, *answer, 100'000);
  if (table)
    CheckTable(*table, report.ByChannel || report.Product == WantedProduct::kReferrals ? 7 : 6);
}

bool FitsAHeader(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return c > ' ' && c <= '~'; });
}

void CheckToken(std::string_view text) {
  const auto token = ReadTokenAnswer(text);
  if (!token) return;
  Require(!token->AccessToken.empty() && FitsAHeader(token->AccessToken));
  Require(FitsAHeader(token->RefreshToken));
  if (token->Lifetime) Require(token->Lifetime->count() >= 0);
}

void CheckAccounts(std::string_view text) {
  const auto page = ReadAccountPage(text);
  if (!page) return;
  for (const PublisherAccount& account : page->Accounts) {
    Require(FitsAHeader(ReportPath(account.Name, "")));
  }
  Require(FitsAHeader(AccountsPath(page->NextPage)));
}

void CheckGrant(std::string_view text) {
  const auto grant = ParseGrant(text);
  if (!grant) return;
  const auto again = ParseGrant(GrantText(*grant));
  Require(again && again->RefreshToken == grant->RefreshToken && again->Account == grant->Account);
  Require(FitsAHeader(RefreshForm(grant->Client, grant->RefreshToken)));
}

void CheckAddress(std::string_view text) {
  const auto report = ParseWantedReport(text);
  if (!report) return;
  const auto today = std::chrono::sys_days(std::chrono::year(2026) / 1 / 1);
  Require(FitsAHeader(ReportQuery(*report, DaysOf(report->Range, today, std::nullopt))));
}

void CheckVerdict(std::string_view text) {
  for (const long status : {200L, 400L, 403L, 500L}) {
    JudgeServiceAnswer({Transfer::kComplete, status, "", "", "", std::string(text)});
  }
}

void CheckConsent(std::string_view text) {
  const auto query = ReadPageRequest(text);
  const auto consent = query ? ReadConsent(*query) : std::nullopt;
  if (consent) Require(!consent->State.empty() && consent->Code.empty() != consent->Error.empty());
  Require(!IsGrantName(text) || text.size() == kGrantNamePrefix.size() + kGrantNameLetters);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text = TextOf(data, size);
  // One reader at a time: what one of them understands is of no use to the others.
  constexpr void (*kChecks[])(std::string_view) = {
      [](std::string_view in) { CheckReport(in, {}); },
      [](std::string_view in) { CheckReport(in, {.ByChannel = true}); },
      [](std::string_view in) {
        CheckReport(in, {.Range = WantedRange::kAllTime, .Unit = CountedBy::kPage});
      },
      [](std::string_view in) { CheckReport(in, {.Product = WantedProduct::kReferrals}); },
      CheckToken,
      CheckAccounts,
      CheckGrant,
      CheckAddress,
      CheckVerdict,
      CheckConsent,
  };
  kChecks[TakeByte(text) % std::size(kChecks)](text);
  return 0;
}
