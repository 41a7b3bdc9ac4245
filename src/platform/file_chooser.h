// Letting the person choose a file.
#pragma once

#include <optional>
#include <string>

namespace quillbox {

// Paths are the host's own bytes, other texts are in the code page.
struct FileQuestion {
  std::string Title;
  std::string FilterName;  // "WAV Files"
  std::string Pattern;     // "*.wav", in any case
  std::string Folder;      // where the person begins
  std::string File;        // the file offered at first; empty for none
};

class FileChooser {
 public:
  virtual ~FileChooser() = default;

  // The full path of a file that is there; nothing when the person chose none. The dialog stands
  // over the Options form, in the middle of the primary screen; events are handled meanwhile.
  virtual std::optional<std::string> Choose(const FileQuestion& question) = 0;
};

}  // namespace quillbox
