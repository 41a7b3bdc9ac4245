// A folder of a test's own, and the files in it.
#pragma once

#include <optional>
#include <string>

namespace quillbox {

// Gone with all that is in it when the test ends.
class Folder {
 public:
  Folder();
  ~Folder();
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  std::string Path(const std::string& name = "") const;

 private:
  std::string path_;
};

// The whole file, or nothing when it can't be read.
std::optional<std::string> ReadWhole(const std::string& path);
void WriteWhole(const std::string& path, const std::string& text);

}  // namespace quillbox
