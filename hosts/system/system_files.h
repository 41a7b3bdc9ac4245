// Files of the operating system.
#pragma once

#include <string>
#include <string_view>

#include "platform/storage.h"

namespace quillbox {

// An open file of the system, closed when it goes out of scope.
class FileDescriptor {
 public:
  // `flags` and `mode` as for open(2); the descriptor is never handed on to other programs.
  FileDescriptor(const std::string& path, int flags, unsigned mode = 0);
  ~FileDescriptor();
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;

  bool IsOpen() const { return number_ >= 0; }
  int Number() const { return number_; }

  // False when the system reports a failed write only now.
  bool Close();

 private:
  int number_;
};

// Writes all of `content` to an open file, pipe or socket, however many writes that takes; an
// interrupted one is done again. False when it can't be written.
bool WriteAll(int descriptor, std::string_view content);

// Paths are bytes as the system has them. Folders, devices and pipes are no files here: nothing
// reads them, and nothing waits for them. Links are followed when reading, never when writing.
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

  // Names are taken as UTF-8 for the pattern; one that the code page can't hold is matched byte by
  // byte. Sorted by their bytes.
  std::vector<std::string> List(const std::string& folder, const std::string& pattern) override;
};

}  // namespace quillbox
