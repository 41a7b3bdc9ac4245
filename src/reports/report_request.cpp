#include "reports/report_request.h"

#include "platform/storage.h"
#include "region/conversions.h"
#include "region/failure_rule.h"
#include "retrieval/fetch_agent.h"
#include "text/code_page.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

using enum ReportFamily;

constexpr ReportTitle kTitles[] = {
    {"Ad Performance - Impressions", kAd, 1, false},
    {"Ad Performance - Clicks", kAd, 2, false},
    {"Ad Performance - CTR", kAd, 3, true},
    {"Ad Performance - eCPM", kAd, 4, true},
    {"Ad Performance - Earnings", kAd, 5, true},
    {"Ad Channel Performance - Impressions", kChannel, 2, false},
    {"Ad Channel Performance - Clicks", kChannel, 3, false},
    {"Ad Channel Performance - CTR", kChannel, 4, true},
    {"Ad Channel Performance - eCPM", kChannel, 5, true},
    {"Ad Channel Performance - Earnings", kChannel, 6, true},
    {"Search Performance - Queries", kSearch, 1, false},
    {"Search Performance - Clicks", kSearch, 2, false},
    {"Search Performance - CTR", kSearch, 3, true},
    {"Search Performance - eCPM", kSearch, 4, true},
    {"Search Performance - Earnings", kSearch, 5, true},
    {"Referrals - Impressions", kReferrals, 1, false},
    {"Referrals - Clicks", kReferrals, 2, false},
    {"Referrals - CTR", kReferrals, 3, true},
    {"Referrals - Sign-ups", kReferrals, 4, true},
    {"Referrals - eCPM", kReferrals, 5, true},
    {"Referrals - Earnings", kReferrals, 6, true},
};

std::string Replaced(std::string_view text, std::string_view from, std::string_view to) {
  return JoinText(SplitText(text, from), to);
}

Report KindOf(ReportFamily family) {
  if (family == kSearch) return Report::kSearch;
  return family == kReferrals ? Report::kReferral : Report::kContent;
}

std::string AddressPath(const ReportRequest& request) {
  std::string path = ReportAddressPath(KindOf(request.Family), request.SimpleDate);
  if (request.Family == kReferrals) return path.append(kByDay);
  path += "&unitPref=" + request.UnitPref + "&outputFormat=TSV_EXCEL";
  if (request.Family != kChannel) return path;
  return path + "&reportType=channel&allChannels=true&groupByPref=both";
}

}  // namespace

std::span<const ReportTitle> ReportTitles() {
  return kTitles;
}

const ReportTitle* FindReportTitle(std::string_view text) {
  for (const ReportTitle& title : kTitles) {
    if (title.Text == text) return &title;
  }
  return nullptr;
}

ReportRequest ReportRequestOf(const ReportTitle& title, std::string_view range,
                              std::string_view unit) {
  return {title.Family, Replaced(Replaced(unit, "Page", "page"), "Individual Ad Unit", "adunit"),
          WithoutText(LowerCase(range), " ")};
}

ReportFiles WindowReportFiles(const ApplicationFolder& folder) {
  return {folder.DataFile("Report.dat"), folder.DataFile("Report.log")};
}

std::string ReportCommand(const ReportRequest& request, std::string_view username,
                          std::string_view password, std::string_view serviceHost,
                          const ApplicationFolder& folder) {
  return SignedInCommand(username, password, serviceHost, AddressPath(request),
                         WindowReportFiles(folder));
}

bool ReportFetch::FetchReport(std::size_t account, const ReportRequest& request) {
  RemoveFiles();
  const AppState& state = program_.State;
  if (account >= state.Accounts.size()) return false;
  const std::string log = WindowReportFiles(program_.Folder).Log;
  const AgentId agent = RunFetchAgent(
      program_, ReportCommand(request, state.UsernameAt(account), state.PasswordAt(account),
                              program_.Build.ServiceHost, program_.Folder));
  agent_ = agent;
  const AgentOutcome outcome = WaitForLogs(program_.Host, {log}, {agent});
  // It must not write into the files of the next request.
  program_.Host.Agents.End(agent);
  if (outcome == AgentOutcome::kNoResponse) return false;
  const std::string code = program_.Host.Disk.Read(log).value_or("");
  return TrueOrFailed([&] { return ToDouble(code, program_.Region) == 0; });
}

void ReportFetch::GiveUp() {
  if (agent_) program_.Host.Agents.End(*agent_);
  RemoveFiles();
}

void ReportFetch::RemoveFiles() {
  const ReportFiles files = WindowReportFiles(program_.Folder);
  for (const std::string& file : {files.Data, files.Log}) {
    if (program_.Host.Disk.Exists(file)) program_.Host.Disk.Remove(file);
  }
  // An agent writes under a temporary name first; one that was ended leaves that file.
  const std::string& folder = program_.Folder.DataFolder();
  for (const std::string& name : program_.Host.Disk.List(folder, "Report.*.part")) {
    program_.Host.Disk.Remove(program_.Folder.DataFile(name));
  }
}

}  // namespace quillbox
