// The clock by which the demo's figures grow.
#pragma once

#include <chrono>

#include "reports/moment.h"

namespace quillbox {

class DemoClock {
 public:
  // `speed`: how many times faster than the day the figures grow from now on, 1 or more. `skew`:
  // how far this clock is ahead of the machine's.
  DemoClock(double speed, std::chrono::seconds skew);

  // The time by this clock.
  std::chrono::system_clock::time_point Time() const;

  // Today by the local calendar. Within a day the growth never falls.
  Moment Now() const;

 private:
  double speed_;
  std::chrono::seconds skew_;
  std::chrono::system_clock::time_point start_;
};

}  // namespace quillbox
