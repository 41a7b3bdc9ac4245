// Pumping in Qt's event loop.
#pragma once

#include "platform/event_pump.h"

namespace quillbox {

class QtEventPump : public EventPump {
 public:
  void PumpEvents() override;
  void Sleep(std::chrono::milliseconds duration) override;
};

}  // namespace quillbox
