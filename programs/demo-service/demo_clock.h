// The clock by which the demo's figures grow.
#pragma once

#include <chrono>

#include "reports/report_table.h"

namespace quillbox {

class DemoClock {
 public:
  // `speed`: how many times faster than the day the figures grow from now on, 1 or more.
  explicit DemoClock(double speed);

  // Today by the local calendar. Within a day the growth never falls.
  Moment Now() const;

 private:
  double speed_;
  std::chrono::system_clock::time_point start_;
};

}  // namespace quillbox
