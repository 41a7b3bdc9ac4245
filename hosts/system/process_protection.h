// What keeps the person's secrets from leaking out of this process by the system's own ways.
#pragma once

#include <sys/types.h>

namespace quillbox {

// From here on new files are for their owner alone, a crash leaves no core file, and no other
// process of the same user can read this one's memory. Call it first thing in main. Gives the file
// mask that was in force: the person's own, which the person's own programs are to have.
mode_t ProtectProcess();

}  // namespace quillbox
