#include "dl/support/local_proxy.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <stdexcept>
#include <thread>

namespace quillbox {
namespace {

using namespace std::chrono_literals;

sockaddr_in Loopback(int port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  return address;
}

bool TakesConnections(int port) {
  const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const sockaddr_in address = Loopback(port);
  const bool connected =
      ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  ::close(socket);
  return connected;
}

void AwaitConnections(int port) {
  for (int tries = 0; tries < 1000; ++tries) {
    if (TakesConnections(port)) return;
    std::this_thread::sleep_for(10ms);
  }
  throw std::runtime_error("the proxy did not start");
}

}  // namespace

int FreePort() {
  const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address = Loopback(0);
  socklen_t size = sizeof address;
  auto* const general = reinterpret_cast<sockaddr*>(&address);
  const bool bound =
      ::bind(socket, general, size) == 0 && ::getsockname(socket, general, &size) == 0;
  ::close(socket);
  if (!bound) throw std::runtime_error("no free port");
  return ntohs(address.sin_port);
}

bool LocalProxy::Installed() {
  return *QUILLBOX_TINYPROXY_PROGRAM != '\0';
}

LocalProxy::LocalProxy(const std::string& configuration) : port_(FreePort()) {
  WriteWhole(folder_.Path("tinyproxy.conf"),
             "Port " + std::to_string(port_) +
                 "\nListen 127.0.0.1\nTimeout 60\nLogLevel Connect\n" + "LogFile \"" +
                 folder_.Path("log") + "\"\n" + configuration);
  process_ = std::make_unique<ChildProcess>(
      ChildStart{{QUILLBOX_TINYPROXY_PROGRAM, "-d", "-c", folder_.Path("tinyproxy.conf")}, {}});
  AwaitConnections(port_);
}

std::string LocalProxy::Address() const {
  return "http://127.0.0.1:" + std::to_string(port_);
}

std::string LocalProxy::Log() const {
  return ReadWhole(folder_.Path("log")).value_or("");
}

}  // namespace quillbox
