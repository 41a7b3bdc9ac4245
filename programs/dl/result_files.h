// The two files that a run leaves.
#pragma once

#include <string>
#include <string_view>

namespace quillbox {

// Takes away what an earlier run left at `path`; a symbolic link there goes, not what it leads to.
void RemoveOldFile(const std::string& path);

// The name under which a file is written before it gets its own: "<path>.<process number>.part".
std::string PartPath(const std::string& path);

// The file appears at `path` with its whole content or not at all: it is written under another name
// in the same folder ("<path>.<process number>.part"), flushed to the disk and renamed. Its owner
// alone can read it; no symbolic link is followed. False when it could not be written.
bool WriteWholeFile(const std::string& path, std::string_view content);

}  // namespace quillbox
