// The clocks of the machine.
#pragma once

#include "platform/clock.h"

namespace quillbox {

class SystemClock : public Clock {
 public:
  // In the time zone that holds at the moment of the call. Seconds are cut off, not rounded.
  std::chrono::local_seconds LocalTime() override;

  TimePoint Now() override;
};

}  // namespace quillbox
