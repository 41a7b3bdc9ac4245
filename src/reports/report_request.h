// From the choices in the Reports window to the request and the downloaded report.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "config/application_folder.h"
#include "platform/agents.h"
#include "retrieval/refresh_commands.h"
#include "state/program_context.h"

namespace quillbox {

enum class ReportFamily { kAd, kChannel, kSearch, kReferrals };

struct ReportTitle {
  std::string_view Text;
  ReportFamily Family;
  std::size_t Cell;  // of a day's line, the one that the graph shows; counted from 0
  bool Normalized;   // that cell passes through NormalizeReportCell

  // A line for each day and channel, instead of one for each day.
  constexpr bool OfChannels() const { return Family == ReportFamily::kChannel; }
  // The service can tell the data of this report by ad unit or by page.
  constexpr bool HasUnit() const {
    return Family == ReportFamily::kAd || Family == ReportFamily::kChannel;
  }
};

// The 21 reports that a person can ask for, in the order of the list.
std::span<const ReportTitle> ReportTitles();

// Null for any other text.
const ReportTitle* FindReportTitle(std::string_view text);

struct ReportRequest {
  ReportFamily Family = ReportFamily::kAd;
  std::string UnitPref;    // "adunit" or "page"; referrals have no use for it
  std::string SimpleDate;  // "last7days"
};

// `range` and `unit` are items of their lists: "Last 7 Days", "Individual Ad Unit".
ReportRequest ReportRequestOf(const ReportTitle& title, std::string_view range,
                              std::string_view unit);

// Full paths of the window's two working files. They are not those of a refresh.
ReportFiles WindowReportFiles(const ApplicationFolder& folder);

// What the agent is given (SignedInCommand).
std::string ReportCommand(const ReportRequest& request, std::string_view username,
                          std::string_view password, std::string_view serviceHost,
                          const ApplicationFolder& folder);

// Downloads the reports of the Reports window, one at a time.
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
