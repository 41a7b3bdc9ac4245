// The program of a person who has used it before, and what its agents answer.
#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "simulated/simulated_agents.h"
#include "simulated/simulated_program.h"

namespace quillbox {

// A month-to-date report of content or search in the en-US notation; its latest day is 31 January
// 2007, with 5 clicks.
inline std::string SampleReport(const std::string& impressions) {
  return "Date\tPage impressions\tClicks\tPage CTR\tPage eCPM\tEarnings\n"
         "1/30/2007\t90\t4\t4.44%\t2.00\t0.18\n"
         "1/31/2007\t" +
         impressions +
         "\t5\t5.00%\t2.50\t0.25\n"
         "Totals\t3000\t100\t3.33%\t2.00\t6.00\n"
         "Averages\t100\t3\t3.33%\t2.00\t0.20\n";
}

// Answers with the code, and with a report when that is 0.
inline AgentBehaviour Answers(const std::string& log,
                              std::chrono::milliseconds after = std::chrono::milliseconds(400)) {
  AgentBehaviour behaviour;
  behaviour.Log = log;
  behaviour.LogAfter = after;
  if (log == "0") behaviour.Data = SampleReport("100");
  return behaviour;
}

// Ends without an answer.
inline AgentBehaviour DiesAfter(std::chrono::milliseconds time) {
  AgentBehaviour behaviour;
  behaviour.EndAfter = time;
  return behaviour;
}

inline AgentBehaviour NeverStarts() {
  AgentBehaviour behaviour;
  behaviour.Starts = false;
  return behaviour;
}

// The same for this data file's requests alone.
inline AgentBehaviour ForFile(const std::string& dataFile, AgentBehaviour behaviour) {
  behaviour.DataFile = dataFile;
  return behaviour;
}

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
