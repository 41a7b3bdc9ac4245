// Who is at the other end of a connection within this machine.
#pragma once

namespace quillbox {

// Whether the system knows of sockets whose they are, asked about one that listens on IPv4.
bool KnowsUsers(int listener);

// Whether the other end of a connection over IPv4 belongs to the user as whom this process acts,
// and is open still. False when that can't be found out.
bool IsPeerOwn(int socket);

}  // namespace quillbox
