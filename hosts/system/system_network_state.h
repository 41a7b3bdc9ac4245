// Whether an interface of this machine leads out of it.
#pragma once

#include "platform/network_state.h"

namespace quillbox {

// Online: an interface other than the loopback is up, has a carrier and an address.
class SystemNetworkState : public NetworkState {
 public:
  bool IsOnline() override;
};

}  // namespace quillbox
