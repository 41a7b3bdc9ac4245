// Files of the operating system.
#pragma once

#include <string>

#include "platform/storage.h"

namespace quillbox {

// Paths are bytes as the system has them, on Windows UTF-8. Folders, devices and pipes are no files
// here: nothing reads them, and nothing waits for them. Links are followed when reading, never when
// writing.
class SystemFiles : public Files {
 public:
  // What is larger is not read: no file of the program comes near, and one that does is a mistake
  // or an attack.
  static constexpr std::uint64_t kLargestFile = 64U << 20U;

  bool Exists(const std::string& path) override;
  std::optional<std::uint64_t> Size(const std::string& path) override;
  std::optional<std::string> Read(const std::string& path) override;
  bool WriteNew(const std::string& path, const std::string& content) override;
  bool Flush(const std::string& path) override;
  bool Rename(const std::string& from, const std::string& to) override;
  bool Remove(const std::string& path) override;

  std::vector<std::string> List(const std::string& folder, const std::string& pattern) override;
};

}  // namespace quillbox
