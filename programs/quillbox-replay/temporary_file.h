// A file that lives as long as this object.
#pragma once

#include <string>

namespace quillbox {

// In a folder of its own that only its owner can enter, below the system's folder for temporary
// files.
class TemporaryFile {
 public:
  // Throws RequestError when the file can't be made.
  explicit TemporaryFile(const std::string& content);
  ~TemporaryFile();
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  std::string Path() const { return folder_ + "/settings.ini"; }

 private:
  std::string folder_;
};

}  // namespace quillbox
