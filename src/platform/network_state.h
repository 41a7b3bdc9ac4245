// Whether the machine is connected.
#pragma once

namespace quillbox {

class NetworkState {
 public:
  virtual ~NetworkState() = default;

  // True when the machine has a connection, or when the host can't tell. Never waits.
  virtual bool IsOnline() = 0;
};

}  // namespace quillbox
