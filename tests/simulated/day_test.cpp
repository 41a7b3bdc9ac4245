// A day of the whole program: the same seed gives the same trace.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulated/sample_report.h"
#include "simulated/simulated_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;

AgentBehaviour Slow(const char* log) {
  AgentBehaviour agent = Answers(log);
  agent.Jitter = 4s;
  return agent;
}

// Every effect with its moment, so that a difference of a millisecond shows.
std::vector<std::string> RunDay(std::uint64_t seed) {
  SimulatedProgram program(seed);
  program.UsedBefore();
  program.AddAccount("one", "ann@example.test", "secret");
  program.AddAccount("two", "bob@example.test", "other");
  program.Set(kPrimaryAccount, "one");
  program.Set(kRefreshTooltip, kTrue);
  program.Set(kDataToDownload, kDownloadAll);
  program.Set(kAutoUpdateEnable, kTrue);
  program.Host.Agents.Always(Slow("0"));
  program.Start();
  program.Host.RunFor(8h);
  program.Host.Agents.Always(Slow("2"));
  program.Host.TrayRestarts();
  program.Host.RunFor(16h);
  std::vector<std::string> lines;
  for (const TraceEntry& entry : program.Host.Effects.Entries()) {
    lines.push_back(std::to_string(entry.At.count()) + " " + TraceLine(entry));
  }
  return lines;
}

TEST(SimulatedDay, SameSeedSameTrace) {
  const auto day = RunDay(7);
  EXPECT_GT(day.size(), 1000U);
  EXPECT_EQ(day, RunDay(7));
  EXPECT_NE(day, RunDay(8));
}

}  // namespace
}  // namespace quillbox
