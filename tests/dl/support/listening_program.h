// A server that somebody else made (a proxy, say), running for one test on a free port.
#pragma once

#include <functional>
#include <memory>

#include "support/child_process.h"

namespace quillbox {

// A TCP socket of the loopback interface, open while it lives.
class LoopbackSocket {
 public:
  explicit LoopbackSocket(int flags = 0);
  ~LoopbackSocket();
  LoopbackSocket(const LoopbackSocket&) = delete;
  LoopbackSocket& operator=(const LoopbackSocket&) = delete;

  // To a free port, which it gives. Throws std::runtime_error when there is none.
  int Bind() const;
  void Listen(int queue) const;
  bool Connect(int port) const;
  int Number() const { return socket_; }

 private:
  int socket_;
};

class ListeningProgram {
 public:
  // `command`: the command line for a port. Takes connections to 127.0.0.1 when this returns.
  explicit ListeningProgram(
      const std::function<std::vector<std::string>(const std::string& port)>& command);

  const std::string& Port() const { return port_; }

  // Ends it and gives all that it said.
  std::string EndAndRead();

 private:
  std::string port_;
  std::unique_ptr<ChildProcess> process_;
};

}  // namespace quillbox
