// Replacing a whole file so that a reader, a crash or a power failure finds the old or the new one.
#pragma once

#include <string>

#include "platform/storage.h"

namespace quillbox {

// Writes `content` under another name in the same folder, flushes it, renames it to `path` and
// flushes the folder. False when any step before the renaming failed: `path` is then untouched and
// nothing else is left behind. The file is for its owner alone, whatever it was before. What a
// writer that was killed leaves (the name with ".new1" to ".new4") goes at the next write. So
// only one may write a file at a time: a second one takes the first one's work away.
bool WriteAtomically(Files& files, const std::string& path, const std::string& content);

}  // namespace quillbox
