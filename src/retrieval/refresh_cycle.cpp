#include "retrieval/refresh_cycle.h"

#include <cstddef>
#include <vector>

#include "config/setting_keys.h"
#include "evaluation/account_evaluation.h"
#include "evaluation/tray_stats.h"
#include "platform/forms.h"
#include "platform/storage.h"
#include "platform/surroundings.h"
#include "region/conversions.h"
#include "retrieval/fetch_agent.h"
#include "retrieval/refresh_commands.h"
#include "tray/tray_icon.h"
#include "tray/tray_menu.h"

namespace quillbox {
namespace {

// The balloon's text when no answer came.
std::string NoResponseText(std::string_view serviceDomain) {
  return "No response received from " + std::string(serviceDomain) +
         "!\r\n\r\nPlease verify that you are connected to the Internet.";
}

std::string NoConnectionText(std::string_view serviceDomain) {
  return "Could not connect to " + std::string(serviceDomain) + "!";
}

std::string RefusedText(std::string_view username) {
  return "You have entered an incorrect username and/or password for the \"" +
         std::string(username) +
         "\" AdSense account in the \"AdSense\" tab of the Quillbox Options window.";
}

constexpr Report kAllReports[] = {Report::kContent, Report::kSearch, Report::kReferral};

// What stays the same for every account of one cycle, and the two codes that are carried from
// account to account.
struct Cycle {
  std::vector<Report> Reports;
  std::string ShowDataByPage;
  std::string ContentCode;
  std::string OtherCode;
};

// The account as it was when its turn began: the lists may change while its reports are fetched.
struct Turn {
  std::size_t Index;
  std::string Account;
  std::string Username;
  std::string Password;
};

std::vector<AgentId> StartAgents(const ProgramContext& program, const Cycle& cycle,
                                 const Turn& turn) {
  std::vector<AgentId> agents;
  for (const Report report : cycle.Reports) {
    agents.push_back(RunFetchAgent(
        program, RefreshCommand(report, cycle.ShowDataByPage, turn.Username, turn.Password,
                                program.Build.ServiceHost, program.Folder)));
  }
  return agents;
}

AgentOutcome WaitForReports(const ProgramContext& program, const Cycle& cycle,
                            const std::vector<AgentId>& agents) {
  if (cycle.Reports.empty()) return AgentOutcome::kAnswered;
  std::vector<std::string> logs;
  for (const Report report : cycle.Reports) {
    logs.push_back(ReportFilesOf(report, program.Folder).Log);
  }
  return WaitForLogs(program.Host, logs, agents);
}

// A log that can't be read leaves its code as it was.
void ReadCodes(const ProgramContext& program, Cycle& cycle) {
  for (const Report report : cycle.Reports) {
    std::string& code = report == Report::kContent ? cycle.ContentCode : cycle.OtherCode;
    code = program.Host.Disk.Read(ReportFilesOf(report, program.Folder).Log).value_or(code);
  }
}

// The name that the account has now; nothing when it is no longer watched. It may have been
// removed, moved or renamed in its place while its reports were fetched; what is stored under a
// name must be that account's, and that is the one with its address.
std::optional<std::string> NameNow(const AppState& state, const Turn& turn) {
  for (std::size_t i = 0; i < state.Accounts.size(); ++i) {
    if (state.Accounts[i] == turn.Account && state.UsernameAt(i) == turn.Username) {
      return turn.Account;
    }
  }
  const bool renamed =
      turn.Index < state.Accounts.size() && state.UsernameAt(turn.Index) == turn.Username;
  return renamed ? std::optional(state.Accounts[turn.Index]) : std::nullopt;
}

void EvaluateTurn(const ProgramContext& program, const Turn& turn) {
  const std::optional<std::string> name = NameNow(program.State, turn);
  if (!name) return;
  const auto dataOf = [&](Report report) { return ReportFilesOf(report, program.Folder).Data; };
  EvaluateAccountReports(
      program, {dataOf(Report::kContent), dataOf(Report::kSearch), dataOf(Report::kReferral)},
      *name);
}

void FinishTurn(const ProgramContext& program, Cycle& cycle, const Turn& turn) {
  ReadCodes(program, cycle);
  const RefreshOutcome outcome = DecideRefreshOutcome(cycle.ContentCode, cycle.OtherCode,
                                                      turn.Username, program.Build.ServiceDomain);
  if (outcome.Evaluate) EvaluateTurn(program, turn);
  if (outcome.Balloon) ShowBalloon(program, *outcome.Balloon);
}

void DeleteReportFiles(const ProgramContext& program) {
  for (const Report report : kAllReports) {
    const ReportFiles files = ReportFilesOf(report, program.Folder);
    for (const std::string& file : {files.Data, files.Log}) {
      if (program.Host.Disk.Exists(file)) program.Host.Disk.Remove(file);
    }
  }
}

void RefreshAccount(const ProgramContext& program, Cycle& cycle, const Turn& turn) {
  const std::vector<AgentId> agents = StartAgents(program, cycle, turn);
  if (WaitForReports(program, cycle, agents) == AgentOutcome::kAnswered) {
    FinishTurn(program, cycle, turn);
  } else {
    ShowBalloon(program, NoResponseText(program.Build.ServiceDomain));
  }
  // An agent that nobody waits for any more must not write into the next account's files.
  for (const AgentId agent : agents) program.Host.Agents.End(agent);
  DeleteReportFiles(program);
}

void RefreshAccounts(const ProgramContext& program) {
  const AppState& state = program.State;
  Cycle cycle;
  cycle.Reports = SelectedReports(program.Store.ReadSetting(kDataToDownload));
  cycle.ShowDataByPage = program.Store.ReadSetting(kShowDataByPage);
  const std::size_t count = state.Accounts.size();
  for (std::size_t i = 0; i < count && i < state.Accounts.size(); ++i) {
    RefreshAccount(program, cycle,
                   {i, state.Accounts[i], state.UsernameAt(i), state.PasswordAt(i)});
  }
}

void PlayDownloaded(const ProgramContext& program) {
  const std::string file = program.Store.ReadSetting(kDownloadedSound);
  if (!file.empty()) program.Host.Speaker.PlaySoundFile(file);
}

void AskForAccounts(const ProgramContext& program) {
  program.Host.Boxes.Show(
      {.Text = "You must complete the \"AdSense Account\" section of the Quillbox\r\n"
               "Options before attempting to retrieve your AdSense information!",
       .Icon = BoxIcon::kInformation});
}

}  // namespace

RefreshOutcome DecideRefreshOutcome(std::string_view contentCode, std::string_view otherCode,
                                    std::string_view username, std::string_view serviceDomain) {
  const double content = LeadingNumber(contentCode);
  if (content == 0 && LeadingNumber(otherCode) == 0) return {true, std::nullopt};
  if (content == 0 || content == 1 || content == 4) {
    return {false, NoConnectionText(serviceDomain)};
  }
  if (content == 2) return {false, NoResponseText(serviceDomain)};
  if (content == 3) return {false, RefusedText(username)};
  return {false, std::nullopt};
}

void RefreshAllAccounts(const ProgramContext& program) {
  AppState& state = program.State;
  if (state.RefreshRunning) return;
  EnableRefreshNow(program, false);
  if (state.Accounts.empty()) {
    AskForAccounts(program);
  } else {
    state.RefreshRunning = true;
    RefreshAccounts(program);
    RebuildAccountMenus(program);
    state.UpdateMinuteCount = 0;
    PlayDownloaded(program);
    state.RefreshRunning = false;
  }
  EnableRefreshNow(program, true);
}

}  // namespace quillbox
