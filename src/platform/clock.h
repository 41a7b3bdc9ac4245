// The two clocks: the person's calendar and the one that measures waits.
#pragma once

#include <chrono>

namespace quillbox {

// Time since an arbitrary start; never set back.
using TimePoint = std::chrono::milliseconds;

class Clock {
 public:
  virtual ~Clock() = default;

  // Date and time of day where the person is.
  virtual std::chrono::local_seconds LocalTime() = 0;

  // For measuring how long something takes.
  virtual TimePoint Now() = 0;
};

}  // namespace quillbox
