// Whole days of automatic refresh.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/form_on_state.h"
#include "simulated/sample_report.h"
#include "simulated/simulated_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

AgentBehaviour TakesFor(std::chrono::milliseconds time) {
  AgentBehaviour agent = Answers("1");
  agent.LogAfter = time;
  return agent;
}

// The moments at which a cycle's first agent was started.
std::vector<TimePoint> Cycles(const SimulatedHost& host, std::size_t agentsOfOne = 1) {
  std::vector<TimePoint> moments;
  std::size_t agents = 0;
  for (const TraceEntry& entry : host.Effects.Entries()) {
    if (entry.What != "agent" || !entry.Text.starts_with("start")) continue;
    if (agents++ % agentsOfOne == 0) moments.push_back(entry.At);
  }
  return moments;
}

// One every `rate` from the beginning and from the end of the one before.
std::vector<TimePoint> Regular(std::chrono::milliseconds rate, std::chrono::milliseconds cycle) {
  std::vector<TimePoint> moments;
  for (TimePoint due = rate; due <= 24h; due += cycle + rate) moments.push_back(due);
  return moments;
}

void Prepare(SimulatedProgram& program, std::string_view rate) {
  program.UsedBefore();
  program.AddAccount("one", "ann", "x");
  program.Set(kDataToDownload, kDownloadContent);
  program.Set(kAutoUpdateEnable, kTrue);
  program.Set(kAutoUpdateRate, rate);
}

TEST(DayOfSchedule, KeepsEveryRate) {
  for (const UpdateRate& rate : kUpdateRates) {
    SimulatedProgram program;
    Prepare(program, rate.Text);
    program.Host.Agents.Always(TakesFor(1s));
    program.Start();
    program.Host.RunFor(24h);
    EXPECT_EQ(Cycles(program.Host), Regular(std::chrono::minutes(rate.Minutes), 1s)) << rate.Text;
  }
}

TEST(DayOfSchedule, CountsFromTheEndOfCyclesThatTakeMinutes) {
  SimulatedProgram program;
  Prepare(program, "Every 25 minutes");
  program.AddAccount("two", "bob", "y");
  program.Host.Agents.Always(TakesFor(90s));
  program.Start();
  program.Host.RunFor(24h);
  EXPECT_EQ(Cycles(program.Host, 2), Regular(25min, 3min));
}

TEST(DayOfSchedule, ACycleOnRequestStartsTheCountAnew) {
  SimulatedProgram program;
  Prepare(program, "Every hour");
  program.AddAccount("two", "bob", "y");
  program.Host.Agents.Always(TakesFor(90s));
  program.Start();
  program.Host.RunFor(100min + 30s);
  program.Host.Choose("RefreshNow");  // until 103:30, over three ticks
  program.Host.RunFor(2h);
  EXPECT_THAT(Cycles(program.Host, 2), ElementsAre(60min, 100min + 30s, 163min));
}

TEST(DayOfSchedule, HoursOfflineEndWithARefreshInTheFirstMinute) {
  SimulatedProgram program;
  Prepare(program, "Every 15 minutes");
  program.Set(kAutoUpdateWhenConnected, kTrue);
  program.Host.Agents.Always(TakesFor(400ms));
  program.Host.After(8h, [&] { program.Host.Network.SetOnline(false); });
  program.Host.After(10h + 7min, [&] {
    EXPECT_EQ(program.State().UpdateMinuteCount, 15 + 126);
    program.Host.Network.SetOnline(true);
  });
  program.Start();
  program.Host.RunFor(10h + 25min);
  const auto cycles = Cycles(program.Host);
  ASSERT_EQ(cycles.size(), 33U);
  EXPECT_LT(cycles[30], 8h);
  EXPECT_EQ(cycles[31], 10h + 7min + 12400ms) << "31 cycles of 400 ms before it";
  EXPECT_EQ(cycles[32], cycles[31] + 15min + 400ms);
}

TEST(DayOfSchedule, WhatTheStoreSaysCountsWhenItIsApplied) {
  SimulatedProgram program;
  Prepare(program, "Every hour");
  program.Host.Agents.Always(TakesFor(1s));
  program.Start();
  program.Host.RunFor(90min);
  program.Set(kAutoUpdateEnable, kFalse);
  program.Set(kAutoUpdateRate, "Every minute");
  program.Host.RunFor(24h - 90min);
  EXPECT_EQ(Cycles(program.Host), Regular(1h, 1s));
}

class RateChanges : public FormOnState {
 protected:
  RateChanges() {
    state_.Accounts.resize(1);
    host_.Store.Put("TrayTooltip", "DataToDownload", kDownloadContent);
    host_.Store.Put("AutoUpdate", "Rate", "Every 30 minutes");
    host_.Agents.Always(TakesFor(0ms));
    form_.StartTimer1();
  }
};

TEST_F(RateChanges, AShorterRateMakesTheNextTickDue) {
  host_.RunFor(20min + 30s);
  state_.UpdateRateMinutes = 5;
  host_.RunFor(10min);
  const auto cycles = Cycles(host_);
  ASSERT_EQ(cycles.size(), 2U);
  EXPECT_EQ(cycles[0], 21min);
  EXPECT_LT(cycles[1] - 26min, 1s);
}

TEST_F(RateChanges, ALongerRateKeepsTheCount) {
  host_.RunFor(20min + 30s);
  state_.UpdateRateMinutes = 300;
  host_.RunFor(24h);
  const auto cycles = Cycles(host_);
  ASSERT_EQ(cycles.size(), 4U);
  EXPECT_EQ(cycles[0], 300min);
}

}  // namespace
}  // namespace quillbox
