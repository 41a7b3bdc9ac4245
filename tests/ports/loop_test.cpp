// The contracts of Timers and EventPump, and of SingleInstance, which reports from the pump.
#include <gtest/gtest.h>

#include <future>
#include <vector>

#include "ports/tried_loop.h"
#include "simulated/simulated_time.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;

class SimulatedLoop final : public TriedLoop {
 public:
  Timers& TimerSource() override { return timers_; }
  EventPump& Events() override { return time_; }
  Clock& Time() override { return time_; }

 private:
  SimulatedTime time_;
  SimulatedTimers timers_{time_};
};

}  // namespace

std::unique_ptr<TriedLoop> MakeSimulatedLoop() {
  return std::make_unique<SimulatedLoop>();
}

namespace {

class LoopPort : public testing::TestWithParam<std::unique_ptr<TriedLoop> (*)()> {
 protected:
  // Whether it came about in the time that any machine needs.
  bool PumpUntil(const std::function<bool()>& wished) {
    const TimePoint end = loop_->Time().Now() + 30s;
    while (!wished() && loop_->Time().Now() < end) {
      loop_->Events().Sleep(1ms);
      loop_->Events().PumpEvents();
    }
    return wished();
  }

  std::unique_ptr<Timer> NewTimer(std::chrono::milliseconds interval,
                                  std::function<void()> onTick) {
    return loop_->TimerSource().NewTimer(interval, std::move(onTick));
  }

  const std::unique_ptr<TriedLoop> loop_ = GetParam()();
};

TEST_P(LoopPort, ATimerTicksFromThePumpAloneAndWhileItIsOn) {
  int ticks = 0;
  const auto timer = NewTimer(20ms, [&] { ++ticks; });
  EXPECT_FALSE(timer->Enabled());
  loop_->Events().Sleep(50ms);
  loop_->Events().PumpEvents();
  EXPECT_EQ(ticks, 0);

  timer->SetEnabled(true);
  EXPECT_TRUE(timer->Enabled());
  loop_->Events().Sleep(50ms);
  EXPECT_EQ(ticks, 0);
  EXPECT_TRUE(PumpUntil([&] { return ticks == 2; }));
  timer->SetEnabled(false);
  loop_->Events().Sleep(50ms);
  loop_->Events().PumpEvents();
  EXPECT_EQ(ticks, 2);
}

TEST_P(LoopPort, TurningOnStartsAWholeInterval) {
  bool ticked = false;
  const auto timer = NewTimer(100ms, [&] { ticked = true; });
  const TimePoint first = loop_->Time().Now();
  timer->SetEnabled(true);
  loop_->Events().Sleep(60ms);
  timer->SetEnabled(true);  // is on: changes nothing
  ASSERT_TRUE(PumpUntil([&] { return ticked; }));
  EXPECT_GE(loop_->Time().Now() - first, 80ms);

  timer->SetEnabled(false);
  loop_->Events().Sleep(150ms);
  const TimePoint second = loop_->Time().Now();
  ticked = false;
  timer->SetEnabled(true);
  ASSERT_TRUE(PumpUntil([&] { return ticked; }));
  EXPECT_GE(loop_->Time().Now() - second, 80ms) << "a clock may be as coarse as 16 ms";
}

TEST_P(LoopPort, WhatComesDueInItsHandlerIsLeftOutAndOthersTickThere) {
  int running = 0, ticks = 0, others = 0;
  const auto other = NewTimer(15ms, [&] { ++others; });
  const auto timer = NewTimer(20ms, [&] {
    ++ticks;
    EXPECT_EQ(++running, 1);
    const int before = others;
    const TimePoint end = loop_->Time().Now() + 110ms;
    while (loop_->Time().Now() < end) {
      loop_->Events().Sleep(1ms);
      loop_->Events().PumpEvents();
    }
    EXPECT_GT(others, before);
    --running;
  });
  timer->SetEnabled(true);
  other->SetEnabled(true);
  EXPECT_TRUE(PumpUntil([&] { return ticks == 1; }));
  loop_->Events().PumpEvents();  // a tick that was merely put off would come at once
  EXPECT_EQ(ticks, 1);
  EXPECT_TRUE(PumpUntil([&] { return ticks == 2; }));
}

TEST_P(LoopPort, AHandlerCanTurnItsTimerOffAndOnAndThrowItAway) {
  int ticks = 0;
  std::unique_ptr<Timer> timer = NewTimer(15ms, [&] {
    timer->SetEnabled(false);
    if (++ticks < 3) timer->SetEnabled(true);
  });
  timer->SetEnabled(true);
  EXPECT_TRUE(PumpUntil([&] { return ticks == 3; }));
  EXPECT_FALSE(timer->Enabled());

  timer = NewTimer(15ms, [&] { timer.reset(); });
  timer->SetEnabled(true);
  EXPECT_TRUE(PumpUntil([&] { return timer == nullptr; }));
}

INSTANTIATE_TEST_SUITE_P(Hosts, LoopPort, testing::Values(MakeSystemLoop, MakeSimulatedLoop),
                         [](const auto& row) {
                           return std::string(row.index == 0 ? "System" : "Simulated");
                         });

TEST(InstancePort, TheOneThatRunsIsToldOfEachLaterStart) {
  const auto loop = MakeSystemLoop();
  int launches = 0;
  const auto first = MakeInstance([&] { ++launches; });
  for (int count = 1; count <= 2; ++count) {
    EXPECT_FALSE(first->AnotherInstanceRuns()) << count;
    const auto later = std::async(std::launch::async, [] {
      const auto second = MakeInstance({});
      if (second->AnotherInstanceRuns()) second->WakeRunningInstance();
    });
    while (later.wait_for(1ms) != std::future_status::ready) loop->Events().PumpEvents();
    loop->Events().PumpEvents();
    EXPECT_EQ(launches, count);
  }
}

}  // namespace
}  // namespace quillbox
