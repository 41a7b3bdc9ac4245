// Files that are for their owner alone and appear whole: what a run leaves, and grants.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillbox {

// Takes away what an earlier run left at `path`; a symbolic link there goes, not what it leads to.
void RemoveOldFile(const std::string& path);

// The name under which a file is written before it gets its own: "<path>.<process number>.part".
std::string PartPath(const std::string& path);

// A file that is on its way: it stands under another name in the same folder ("PartPath") until it
// has its content. Its owner alone can read it; no symbolic link is followed.
class ComingFile {
 public:
  // Takes `room` bytes on the disk, written and flushed, so that a content of that size can't fail
  // for want of room later.
  ComingFile(std::string path, std::size_t room);
  // What has got no content goes.
  ~ComingFile();
  ComingFile(const ComingFile&) = delete;
  ComingFile& operator=(const ComingFile&) = delete;

  // False when the file can't be made or has no room.
  bool IsMade() const { return file_ >= 0; }

  // Open until Arrive or the end; -1 when it isn't made.
  int Descriptor() const { return file_; }

  // It gets its content, is flushed and appears at its path, in the place of what stands there.
  // False, and nothing there has changed, when that fails. To be called once.
  bool Arrive(std::string_view content);

 private:
  const std::string path_, part_;
  int file_;
};

// The file appears at `path` with its whole content or not at all: it is written under another name
// in the same folder ("<path>.<process number>.part"), flushed to the disk and renamed. Its owner
// alone can read it; no symbolic link is followed. False when it could not be written.
bool WriteWholeFile(const std::string& path, std::string_view content);

// The content of a file of at most `mostBytes`. Nothing for a link, a file of somebody else or one
// that is open to others, and for one that can't be read.
std::optional<std::string> ReadOwnFile(const std::string& path, std::size_t mostBytes);

// The names in the folder; nothing when it can't be read.
std::optional<std::vector<std::string>> FilesIn(const std::string& folder);

// Makes the folder with those above it. From then on it is for its owner alone. False when that
// fails.
bool MakeOwnFolder(const std::string& folder);

// What happened in the folder outlives a power failure, where the system can do that.
void FlushFolder(const std::string& folder);

// Takes the file away; a link goes, not what it leads to. Whether none is left, also when there was
// none.
bool RemoveFile(const std::string& path);

// The folder in which the person's programs keep data; empty when the environment names none.
std::string DataFolder();

}  // namespace quillbox
