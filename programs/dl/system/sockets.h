// Connections within this machine, and who is at their other end.
#pragma once

#include <chrono>
#include <cstddef>
#include <span>
#include <string_view>

namespace quillbox {

// Sockets are numbers; -1 is none. None of them is inherited by programs that are started, and none
// waits by itself.

// A socket that listens on a free port of 127.0.0.1, which becomes `port`. -1 when that fails, or
// when the system doesn't tell whose its visitors are.
int ListenOnLoopback(int& port);

// The next visitor's socket; -1 when nobody waits.
int AcceptVisitor(int listener);

// Waits until one of the sockets can be read, at most so long.
void AwaitReadable(std::span<const int> sockets, std::chrono::milliseconds longest);

// The bytes that came into `piece`; 0 when there are none yet, -1 when the visitor sends no more.
int Receive(int socket, std::span<char> piece);

// Sends until the visitor doesn't read for `patience`, or is gone.
void SendWhole(int socket, std::string_view bytes, std::chrono::milliseconds patience);

// What was sent still arrives.
void CloseSocket(int socket);

// With a reset, so that nothing of it stays, and no number of these takes away all the ports.
void ResetSocket(int socket);

// Whether the other end has taken the connection, and it stands still.
bool IsConnected(int socket);

// Whether the other end of a connection over IPv4 belongs to the user as whom this process acts,
// and is open still. False when that can't be found out.
bool IsPeerOwn(int socket);

}  // namespace quillbox
