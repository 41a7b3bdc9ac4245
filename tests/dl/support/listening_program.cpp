#include "dl/support/listening_program.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <stdexcept>
#include <thread>

namespace quillbox {
namespace {

sockaddr_in AddressOf(int port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  return address;
}

}  // namespace

LoopbackSocket::LoopbackSocket(int flags)
    : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | flags, 0)) {}

LoopbackSocket::~LoopbackSocket() {
  ::close(socket_);
}

int LoopbackSocket::Bind() const {
  sockaddr_in address = AddressOf(0);
  socklen_t size = sizeof address;
  auto* const general = reinterpret_cast<sockaddr*>(&address);
  if (::bind(socket_, general, size) != 0 || ::getsockname(socket_, general, &size) != 0) {
    throw std::runtime_error("no free port");
  }
  return ntohs(address.sin_port);
}

void LoopbackSocket::Listen(int queue) const {
  if (::listen(socket_, queue) != 0) throw std::runtime_error("can't listen");
}

bool LoopbackSocket::Connect(int port) const {
  const sockaddr_in address = AddressOf(port);
  return ::connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

ListeningProgram::ListeningProgram(
    const std::function<std::vector<std::string>(const std::string& port)>& command) {
  const int port = LoopbackSocket().Bind();
  port_ = std::to_string(port);
  process_ = std::make_unique<ChildProcess>(ChildStart{command(port_), {}});
  for (int tries = 0; !LoopbackSocket().Connect(port); ++tries) {
    if (tries == 1000) throw std::runtime_error(command(port_)[0] + " did not start");
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
}

std::string ListeningProgram::EndAndRead() {
  process_->End();
  return process_->ReadAll();
}

}  // namespace quillbox
