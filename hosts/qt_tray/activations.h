// Telling a double click from the activations of which alone some trays tell.
#pragma once

#include <chrono>
#include <optional>

#include "platform/host.h"

namespace quillbox {

class Activations {
 public:
  using Clock = std::chrono::steady_clock;

  // What this activation stands for: the second one within the time of a double click is one, and
  // the next one after it begins anew.
  TrayMouse Next(Clock::time_point now, std::chrono::milliseconds doubleClickTime) {
    const bool second = first_ && now - *first_ <= doubleClickTime;
    first_ = second ? std::nullopt : std::optional(now);
    return second ? TrayMouse::kLeftDoubleClick : TrayMouse::kLeftDown;
  }

 private:
  std::optional<Clock::time_point> first_;
};

}  // namespace quillbox
