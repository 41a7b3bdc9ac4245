// Timers on simulated time.
#pragma once

#include <memory>
#include <vector>

#include "platform/timers.h"
#include "simulated/simulated_time.h"

namespace quillbox {

class SimulatedTimers final : public Timers {
 public:
  // `time` must outlive this object.
  explicit SimulatedTimers(SimulatedTime& time) : time_(time) {}

  // The process that made the timers is gone: none of them ticks any more.
  void StopAll();

  std::unique_ptr<Timer> NewTimer(std::chrono::milliseconds interval,
                                  std::function<void()> onTick) override;

 private:
  SimulatedTime& time_;
  std::vector<std::weak_ptr<Timer>> timers_;
};

}  // namespace quillbox
