// What some systems alone can do.
#pragma once

namespace quillbox {

// From here on no other process of the user may look into this one's memory. Does nothing
// elsewhere.
void ForbidInspection();

// Whether the system knows of sockets whose they are, asked about one that listens on IPv4.
bool KnowsUsers(int listener);

}  // namespace quillbox
