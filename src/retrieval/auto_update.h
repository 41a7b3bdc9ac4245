// Automatic update: the minute clock that starts refreshes at the chosen rate.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/timing.h"
#include "state/program_context.h"

namespace quillbox {

class AutoUpdate {
 public:
  // Stopped at first. The context must outlive the clock.
  explicit AutoUpdate(const ProgramContext& program);

  // Takes the stored rate into use; minutes counted so far stay.
  void SetAutoUpdateRate();

  bool Running() const;

  // Begins to count at 0. A clock that runs already goes on with its minute.
  void Start();
  void Stop();

 private:
  void Tick();
  void SwapTimers();

  const ProgramContext& program_;
  std::unique_ptr<Timer> Timer1_, Timer2_;  // one minute clock in two halves
};

// The minutes of a text of Rate; 15 for every other text.
std::int16_t RateMinutes(std::string_view rate);

}  // namespace quillbox
