#include "system/sockets.h"

#include <winsock2.h>

#include <windows.h>

#include <iphlpapi.h>
#include <ws2tcpip.h>

#include <algorithm>
#include <optional>
#include <vector>

#include "system/windows/wide.h"

namespace quillbox {
namespace {

// Numbers of sockets are small here too.
SOCKET SocketOf(int number) {
  return static_cast<SOCKET>(number);
}

int NumberOf(SOCKET socket) {
  return socket == INVALID_SOCKET ? -1 : static_cast<int>(socket);
}

void Quieten(SOCKET socket) {
  u_long never = 1;
  ioctlsocket(socket, FIONBIO, &never);
  SetHandleInformation(reinterpret_cast<HANDLE>(socket), HANDLE_FLAG_INHERIT, 0);
}

using GetName = int WINAPI(SOCKET, sockaddr*, int*);

std::optional<sockaddr_in> EndOf(SOCKET socket, GetName& getName) {
  sockaddr_in address{};
  int size = sizeof address;
  const bool known = getName(socket, reinterpret_cast<sockaddr*>(&address), &size) == 0 &&
                     address.sin_family == AF_INET;
  return known ? std::optional(address) : std::nullopt;
}

// The connections of IPv4 with their processes; nothing when the system doesn't tell.
std::optional<std::vector<MIB_TCPROW_OWNER_PID>> Connections() {
  std::vector<std::byte> room(64 << 10);
  auto size = static_cast<DWORD>(room.size());
  const auto ask = [&] {
    return GetExtendedTcpTable(room.data(), &size, FALSE, AF_INET, TCP_TABLE_OWNER_PID_CONNECTIONS,
                               0);
  };
  DWORD told = ask();
  for (int tries = 0; told == ERROR_INSUFFICIENT_BUFFER && tries < 5; ++tries) {
    room.resize(size + 4096);
    size = static_cast<DWORD>(room.size());
    told = ask();
  }
  if (told != NO_ERROR) return std::nullopt;
  const auto* const table = reinterpret_cast<const MIB_TCPTABLE_OWNER_PID*>(room.data());
  return std::vector(table->table, table->table + table->dwNumEntries);
}

bool Joins(const MIB_TCPROW_OWNER_PID& row, const sockaddr_in& local, const sockaddr_in& remote) {
  return row.dwState == MIB_TCP_STATE_ESTAB && row.dwLocalAddr == local.sin_addr.s_addr &&
         static_cast<u_short>(row.dwLocalPort) == local.sin_port &&
         row.dwRemoteAddr == remote.sin_addr.s_addr &&
         static_cast<u_short>(row.dwRemotePort) == remote.sin_port;
}

// The process that has the end `local` of the connection; 0 when the system doesn't tell.
DWORD OwnerOf(const sockaddr_in& local, const sockaddr_in& remote) {
  const auto rows = Connections();
  if (!rows) return 0;
  const auto row =
      std::ranges::find_if(*rows, [&](const auto& each) { return Joins(each, local, remote); });
  return row == rows->end() ? 0 : row->dwOwningPid;
}

}  // namespace

bool IsConnected(int socket) {
  sockaddr_storage address{};
  int size = sizeof address;
  return ::getpeername(SocketOf(socket), reinterpret_cast<sockaddr*>(&address), &size) == 0;
}

int ListenOnLoopback(int& port) {
  const SOCKET listener = WSASocketW(AF_INET, SOCK_STREAM, 0, nullptr, 0, WSA_FLAG_OVERLAPPED);
  if (listener == INVALID_SOCKET) return -1;
  Quieten(listener);
  // Nobody else may listen on the same port.
  const BOOL alone = TRUE;
  setsockopt(listener, SOL_SOCKET, SO_EXCLUSIVEADDRUSE, reinterpret_cast<const char*>(&alone),
             sizeof alone);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  const bool bound = ::bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 &&
                     ::listen(listener, SOMAXCONN) == 0;
  const auto here = bound ? EndOf(listener, ::getsockname) : std::nullopt;
  if (here && Connections()) {
    port = ntohs(here->sin_port);
    return NumberOf(listener);
  }
  ::closesocket(listener);
  return -1;
}

int AcceptVisitor(int listener) {
  const SOCKET visitor = ::accept(SocketOf(listener), nullptr, nullptr);
  if (visitor != INVALID_SOCKET) Quieten(visitor);
  return NumberOf(visitor);
}

void AwaitReadable(std::span<const int> sockets, std::chrono::milliseconds longest) {
  std::vector<WSAPOLLFD> watched;
  for (const int socket : sockets) watched.push_back({SocketOf(socket), POLLRDNORM, 0});
  WSAPoll(watched.data(), static_cast<ULONG>(watched.size()), static_cast<int>(longest.count()));
}

int Receive(int socket, std::span<char> piece) {
  const int got = ::recv(SocketOf(socket), piece.data(), static_cast<int>(piece.size()), 0);
  if (got < 0 && WSAGetLastError() == WSAEWOULDBLOCK) return 0;
  return got > 0 ? got : -1;
}

void SendWhole(int socket, std::string_view bytes, std::chrono::milliseconds patience) {
  WSAPOLLFD writable{SocketOf(socket), POLLWRNORM, 0};
  while (!bytes.empty() && WSAPoll(&writable, 1, static_cast<int>(patience.count())) > 0) {
    const int sent = ::send(SocketOf(socket), bytes.data(), static_cast<int>(bytes.size()), 0);
    if (sent < 0) return;
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
}

void CloseSocket(int socket) {
  ::shutdown(SocketOf(socket), SD_SEND);
  ::closesocket(SocketOf(socket));
}

void ResetSocket(int socket) {
  const linger none{1, 0};
  ::setsockopt(SocketOf(socket), SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&none),
               sizeof none);
  ::closesocket(SocketOf(socket));
}

bool IsPeerOwn(int socket) {
  constexpr std::chrono::milliseconds kFirstWords{300};
  const auto here = EndOf(SocketOf(socket), ::getsockname);
  const auto there = EndOf(SocketOf(socket), ::getpeername);
  if (!here || !there) return false;
  DWORD owner = OwnerOf(*there, *here);
  if (owner == 0) {  // Wine knows it once the other end has sent something
    AwaitReadable({&socket, 1}, kFirstWords);
    owner = OwnerOf(*there, *here);
  }
  return owner != 0 && IsOwnProcess(owner);
}

}  // namespace quillbox
