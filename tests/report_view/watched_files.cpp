#include "report_view/watched_files.h"

#include <arpa/inet.h>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <unistd.h>

#include <fstream>
#include <stdexcept>

namespace quillbox {
namespace {

int Listen(int kind, int& number) {
  const int descriptor = ::socket(AF_INET, kind | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<std::uint16_t>(number));
  socklen_t size = sizeof address;
  auto* const place = reinterpret_cast<sockaddr*>(&address);
  if (::bind(descriptor, place, size) != 0) throw std::runtime_error("can't bind");
  if (kind == SOCK_STREAM) ::listen(descriptor, 100);
  ::getsockname(descriptor, place, &size);
  number = ntohs(address.sin_port);
  return descriptor;
}

}  // namespace

WatchedFiles::WatchedFiles() : descriptor_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {}

WatchedFiles::~WatchedFiles() {
  ::close(descriptor_);
}

void WatchedFiles::Add(const std::string& path) {
  std::ofstream(path) << "document.body.style.background = 'red'; // secret";
  if (::inotify_add_watch(descriptor_, path.c_str(), IN_OPEN | IN_ACCESS) < 0) {
    throw std::runtime_error("can't watch " + path);
  }
}

int WatchedFiles::TakeCount() {
  int count = 0;
  alignas(inotify_event) char events[4096];
  while (::read(descriptor_, events, sizeof events) > 0) ++count;
  return count;
}

WatchedPort::WatchedPort()
    : stream_(Listen(SOCK_STREAM, number_)), datagrams_(Listen(SOCK_DGRAM, number_)) {}

WatchedPort::~WatchedPort() {
  ::close(stream_);
  ::close(datagrams_);
}

int WatchedPort::TakeCount() {
  int count = 0;
  for (int one = ::accept(stream_, nullptr, nullptr); one >= 0;
       one = ::accept(stream_, nullptr, nullptr)) {
    ::close(one);
    ++count;
  }
  char datagram[64];
  while (::recv(datagrams_, datagram, sizeof datagram, 0) >= 0) ++count;
  return count;
}

}  // namespace quillbox
