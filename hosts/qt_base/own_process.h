// What the system does for this process and its children.
#pragma once

namespace quillbox {

// For the child between its making and its program: the system kills it when the thread that
// started it ends. Does nothing on systems that know no such thing.
void EndWithParent();

// Gives back to the system what the program no longer needs but still holds. After a window has
// been closed: its picture may have been many times as large as all that the program needs at rest.
void GiveBackSpareMemory();

}  // namespace quillbox
