// What surrounds the program on the machine: its clocks, the environment, the network.
#pragma once

#include "platform/process.h"
#include "platform/surroundings.h"
#include "platform/timing.h"

namespace quillbox {

class SystemClock : public Clock {
 public:
  // In the time zone that holds at the moment of the call. Seconds are cut off, not rounded.
  std::chrono::local_seconds LocalTime() override;

  TimePoint Now() override;
};

// The environment of this process. Values are taken as UTF-8. A variable whose name has exactly the
// asked letters comes before one in another case.
class SystemEnvironment : public Environment {
 public:
  std::string Variable(std::string_view name) override;
};

// The person's folder for configuration: XDG_CONFIG_HOME if it is absolute, else ".config" in HOME.
// Bytes as the system has them; empty when there is none.
std::string ConfigFolder();

// Online: an interface other than the loopback is up, has a carrier and an address.
class SystemNetworkState : public NetworkState {
 public:
  bool IsOnline() override;
};

}  // namespace quillbox
