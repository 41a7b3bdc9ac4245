#include "reports/fetch_report.h"

#include "platform/storage.h"
#include "region/conversions.h"
#include "region/failure_rule.h"
#include "retrieval/fetch_agent.h"

namespace quillbox {

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
  // What an agent that was ended had not finished; it writes under a name with an ending of its
  // own.
  const std::string& folder = program_.Folder.DataFolder();
  for (const std::string& name : program_.Host.Disk.List(folder, "Report.*.part")) {
    program_.Host.Disk.Remove(program_.Folder.DataFile(name));
  }
}

}  // namespace quillbox
