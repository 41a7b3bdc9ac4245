#include "commands.h"

#include <cstdio>
#include <optional>
#include <utility>

#include "api/wanted_report.h"
#include "environment.h"
#include "fetch.h"
#include "grant_files.h"
#include "granted_report.h"
#include "service_questions.h"
#include "system/terminal.h"
#include "system/watchdog.h"
#include "text/code_page.h"
#include "text/grant_name.h"

namespace quillbox {
namespace {

constexpr const char* kThisMonth =
    "/adsense/report/aggregate?product=afc&dateRange.dateRangeType=simple"
    "&dateRange.simpleDate=thismonth&reportType=property&groupByPref=date"
    "&outputFormat=TSV_EXCEL&unitPref=page";

std::string AnswerInWords(const Grant& grant, const ReportAnswer& answer) {
  std::string words = "\nThe service answered with a report of " +
                      std::to_string((answer.Days.Last - answer.Days.First).count() + 1) +
                      " days for " + grant.Account;
  if (!answer.Currency.empty()) words += " in " + Plain(answer.Currency);
  words += ".";
  for (const std::string& warning : answer.Warnings) words += "\nIt warns: " + Plain(warning);
  return words;
}

// No new connection helps where it isn't the account that was refused.
std::string Advice(const ServiceVerdict& verdict) {
  switch (verdict.Whom) {
    case Concerns::kRegistration:
      return "\nThis is not about your account: the program's own registration with the service "
             "(see QUILLBOX_OAUTH_CLIENT_ID) doesn't allow it to read reports. Who packaged "
             "Quillbox must switch that on there.";
    case Concerns::kQuota:
      return "\nThis is not about your account: the program has asked as often as the service "
             "allows it for now.";
    case Concerns::kAccount:
      break;
  }
  const bool refused = verdict.Code == ResultCode::kRefused;
  return refused ? "\nConnect the account again to get a new grant." : "";
}

Outcome CheckGrant(Session& session, const std::string& name) {
  const std::string folder = GrantFolder();
  auto grant = LoadGrant(folder, name);
  if (!grant) return {ResultCode::kRefused, "There is no such grant in " + folder + "."};
  GrantedService service(session, TheService(), {folder, name, std::move(*grant)});
  const GrantedReport report = FetchReport(service, ParseWantedReport(kThisMonth).value());
  std::string words = WordsFor(report.Verdict, report.Verdict.Asked);
  if (report.Verdict.Code == ResultCode::kSuccess) {
    words += AnswerInWords(service.Granted(), report.Answer);
  } else {
    words += Advice(report.Verdict);
  }
  return {report.Verdict.Code, words};
}

Outcome CheckPassword(Session& session, const std::string& email, const std::string& password) {
  const auto emailText = FromUtf8(email);
  const auto passwordText = FromUtf8(password);
  if (!emailText || !passwordText) {
    return {ResultCode::kNoConnection,
            "The address or the password holds a character that can't "
            "be sent."};
  }
  const std::string address = "https://" + TheOldServiceHost() + kThisMonth;
  const Fetched fetched =
      Fetch(session, {.SignIn = Credentials{*emailText, *passwordText}, .Address = address});
  std::string words = WordsFor({fetched.Code, false, ""}, address);
  if (fetched.Code == ResultCode::kSuccess) {
    words += "\nThe service answered with a report of " + std::to_string(fetched.Body.size()) +
             " bytes.";
  }
  return {fetched.Code, words};
}

Outcome CheckAccount(const std::string& email) {
  const std::string secret = ReadSecret("Password: ");
  WatchCommand("No answer came in time.", kStandardOutput, TheLimits().Total);
  const CurlLibrary curl = LoadCurl();
  if (!curl.Loaded()) return {ResultCode::kNoConnection, kNoCurl};
  Session session = OpenSession(curl);
  return IsGrantName(secret) ? CheckGrant(session, secret) : CheckPassword(session, email, secret);
}

}  // namespace

int Check(const std::string& email) {
  const Outcome outcome = CheckAccount(email);
  EndWatch();
  std::puts(outcome.Words.c_str());
  return static_cast<int>(outcome.Code);
}

}  // namespace quillbox
