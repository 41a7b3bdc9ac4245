// The program of a person who has used it before.
#pragma once

#include <string>
#include <vector>

#include "simulated/sample_report.h"
#include "simulated/simulated_program.h"

namespace quillbox {

// Its account "one" is ann's; it fetches the report of content alone.
class UsedProgram : public SimulatedProgram {
 public:
  UsedProgram() {
    UsedBefore();
    AddAccount("one", "ann", "x");
    Set(kDataToDownload, kDownloadContent);
  }

  // "one" is the primary account, whose figures are there after the start.
  void FetchFigures() {
    Set(kPrimaryAccount, "one");
    Set(kTooltipValues, "AB");
    Set(kRefreshTooltip, kTrue);
    Host.Agents.Always(Answers("0"));
  }

  // Starts and lets the first events pass. The trace is empty afterwards.
  void StartQuietly() {
    Start();
    Host.RunFor(std::chrono::seconds(1));
    Host.Effects.Clear();
  }
};

// The moments at which agents were started.
inline std::vector<TimePoint> AgentStarts(const SimulatedHost& host) {
  std::vector<TimePoint> moments;
  for (const TraceEntry& entry : host.Effects.Entries()) {
    if (entry.What == "agent" && entry.Text.starts_with("start")) moments.push_back(entry.At);
  }
  return moments;
}

}  // namespace quillbox
