// An event loop whose ports are tried against their contracts.
#pragma once

#include <functional>
#include <memory>

#include "platform/process.h"
#include "platform/timing.h"

namespace quillbox {

class TriedLoop {
 public:
  virtual ~TriedLoop() = default;
  virtual Timers& TimerSource() = 0;
  virtual EventPump& Events() = 0;
  virtual Clock& Time() = 0;
};

std::unique_ptr<TriedLoop> MakeSystemLoop();
std::unique_ptr<TriedLoop> MakeSimulatedLoop();

// One start of the program, as another process; `launched` is told of later ones from the pump.
std::unique_ptr<SingleInstance> MakeInstance(std::function<void()> launched);

}  // namespace quillbox
