// Files of the host, by their full paths. Paths are the host's own bytes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quillbox {

// Whole-file writes of the person's data go through WriteAtomically (config/atomic_write.h), which
// is made of these steps.
class Files {
 public:
  virtual ~Files() = default;

  // Whether a file, not a folder, has this path.
  virtual bool Exists(const std::string& path) = 0;

  // In bytes; nothing when there is no such file.
  virtual std::optional<std::uint64_t> Size(const std::string& path) = 0;

  // The whole content; nothing when the file is not there or can't be read.
  virtual std::optional<std::string> Read(const std::string& path) = 0;

  // Makes a file that was not there, readable and writable by its owner alone, and fills it. False
  // when the name is taken (a link counts as taken) or the content did not go in; a file that was
  // made is then gone again. The content may still be lost in a power failure: see Flush.
  virtual bool WriteNew(const std::string& path, const std::string& content) = 0;

  // After true, what the file (or folder) holds outlives a power failure.
  virtual bool Flush(const std::string& path) = 0;

  // Gives the file its new name in one step and replaces what had that name, but no folder and no
  // file that is read-only for the person. False changes nothing.
  virtual bool Rename(const std::string& from, const std::string& to) = 0;

  // False when the file is still there. Removing what is not there is a success.
  virtual bool Remove(const std::string& path) = 0;

  // Names (without the folder) of the files in `folder` that match `pattern`, in which "*" stands
  // for any run of characters and "?" for one. Case is ignored; sorted by name.
  virtual std::vector<std::string> List(const std::string& folder, const std::string& pattern) = 0;
};

}  // namespace quillbox
