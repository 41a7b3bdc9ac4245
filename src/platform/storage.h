// What outlives a run: the files of the host, and the store of settings that it keeps for each
// user.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillbox {

// Files by their full paths. Paths are the host's own bytes. Whole-file writes of the person's data
// go through WriteAtomically (config/atomic_write.h), which is made of these steps.
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
  // for any run of characters and "?" for one. Names are taken as UTF-8; one that the code page
  // can't hold is matched byte by byte. Case is ignored; sorted by their bytes.
  virtual std::vector<std::string> List(const std::string& folder, const std::string& pattern) = 0;
};

// One change in a batch; no value means that the key goes.
struct SettingChange {
  std::string Section;
  std::string Key;
  std::optional<std::string> Value;
};

// Sections, keys and values may hold any characters of the code page. Sections and keys are matched
// without regard to case. A store that could not keep a value reads back what it has on disk.
class PerUserStore {
 public:
  virtual ~PerUserStore() = default;

  // The value, or the empty text when there is none.
  virtual std::string Read(std::string_view section, std::string_view key) = 0;

  // All changes, in their order, in one atomic write: whatever happens meanwhile, afterwards either
  // all or none of them are there. Whether they are.
  virtual bool Apply(std::span<const SettingChange> changes) = 0;
};

}  // namespace quillbox
