// Letting other events run in the middle of a long operation.
#pragma once

#include <chrono>

namespace quillbox {

class EventPump {
 public:
  virtual ~EventPump() = default;

  // Handles the events that are waiting, once, and returns. Anything may have changed afterwards.
  virtual void PumpEvents() = 0;

  // Waits without handling events.
  virtual void Sleep(std::chrono::milliseconds duration) = 0;
};

}  // namespace quillbox
