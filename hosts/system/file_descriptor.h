// An open file of the system, closed when it goes out of scope.
#pragma once

#include <string>

namespace quillbox {

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

}  // namespace quillbox
