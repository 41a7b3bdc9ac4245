// Memory that was needed for a while only.
#pragma once

namespace quillbox {

// Gives back to the system what the program no longer needs but still holds. After a window has
// been closed: its picture may have been many times as large as all that the program needs at rest.
void GiveBackSpareMemory();

}  // namespace quillbox
