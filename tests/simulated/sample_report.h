// Reports and agent behaviours for tests of the whole program.
#pragma once

#include <string>

#include "simulated/simulated_agents.h"

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
inline AgentBehaviour Answers(const std::string& log) {
  AgentBehaviour behaviour;
  behaviour.Log = log;
  if (log == "0") behaviour.Data = SampleReport("100");
  return behaviour;
}

}  // namespace quillbox
