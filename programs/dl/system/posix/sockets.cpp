#include "system/sockets.h"

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

#include "system/posix/special.h"

namespace quillbox {

bool IsConnected(int socket) {
  sockaddr_storage address{};
  socklen_t size = sizeof address;
  return ::getpeername(socket, reinterpret_cast<sockaddr*>(&address), &size) == 0;
}

int ListenOnLoopback(int& port) {
  const int listener = ::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  auto* const general = reinterpret_cast<sockaddr*>(&address);
  socklen_t size = sizeof address;
  const bool listens = listener >= 0 && ::bind(listener, general, size) == 0 &&
                       ::listen(listener, SOMAXCONN) == 0 &&
                       ::getsockname(listener, general, &size) == 0 && KnowsUsers(listener);
  port = ntohs(address.sin_port);
  if (listens) return listener;
  if (listener >= 0) ::close(listener);
  return -1;
}

int AcceptVisitor(int listener) {
  return ::accept4(listener, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
}

void AwaitReadable(std::span<const int> sockets, std::chrono::milliseconds longest) {
  std::vector<pollfd> watched;
  for (const int socket : sockets) watched.push_back({socket, POLLIN, 0});
  ::poll(watched.data(), watched.size(), static_cast<int>(longest.count()));
}

int Receive(int socket, std::span<char> piece) {
  const ssize_t got = ::recv(socket, piece.data(), piece.size(), 0);
  const bool silent = got < 0 && (errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR);
  if (silent) return 0;
  return got > 0 ? static_cast<int>(got) : -1;
}

void SendWhole(int socket, std::string_view bytes, std::chrono::milliseconds patience) {
  pollfd writable{socket, POLLOUT, 0};
  while (!bytes.empty() && ::poll(&writable, 1, static_cast<int>(patience.count())) > 0) {
    const ssize_t sent = ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent < 0) return;
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
}

void CloseSocket(int socket) {
  ::shutdown(socket, SHUT_WR);
  ::close(socket);
}

void ResetSocket(int socket) {
  const linger none{1, 0};
  ::setsockopt(socket, SOL_SOCKET, SO_LINGER, &none, sizeof none);
  ::close(socket);
}

}  // namespace quillbox
