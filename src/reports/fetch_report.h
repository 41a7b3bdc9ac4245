// Fetching the report that was asked for in the Reports window.
#pragma once

#include <cstddef>
#include <optional>

#include "platform/agents.h"
#include "reports/report_request.h"
#include "state/program_context.h"

namespace quillbox {

class ReportFetch {
 public:
  // The context must outlive it.
  explicit ReportFetch(const ProgramContext& program) : program_(program) {}

  // Runs the agent for the account of that index, and pumps events until it has answered, is no
  // more, or kLongestAgentWait is over. True when the agent reports success, also when its log is
  // no number; the report is then in WindowReportFiles. False when there is no such account. What
  // an earlier request left is gone before the agent starts.
  bool FetchReport(std::size_t account, const ReportRequest& request);

  // Ends the agent of the last request; a wait for it ends with the next pump. Its files go.
  void GiveUp();

 private:
  void RemoveFiles();

  const ProgramContext& program_;
  std::optional<AgentId> agent_;  // of the last request
};

}  // namespace quillbox
