// Timers in Qt's event loop.
#pragma once

#include "platform/timers.h"

namespace quillbox {

class QtTimers : public Timers {
 public:
  // No interval is shorter than 15 ms. Ticks keep to whole intervals from when the timer was turned
  // on; those that come due while the handler runs are left out.
  std::unique_ptr<Timer> NewTimer(std::chrono::milliseconds interval,
                                  std::function<void()> onTick) override;
};

}  // namespace quillbox
