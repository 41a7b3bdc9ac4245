// The players that this process has started.
#pragma once

namespace quillbox {

// How many are in the system's list, also one that has ended and that nobody asked for yet.
int PlayerProcesses();

// Runs the event loop until there is none; false when one is still there after twenty seconds.
bool PlayersEnd();

// Whether a file of that name is mapped into this process.
bool HasLoaded(const char* library);

}  // namespace quillbox
