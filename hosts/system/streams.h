// Bytes into and out of open files, pipes and the standard streams.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillbox {

// Writes all of `content` to an open file, pipe or socket, however many writes that takes; an
// interrupted one is done again. False when it can't be written.
bool WriteAll(int descriptor, std::string_view content);

// Reads what is there, at most as much as `room` takes, and waits for the first byte: how many were
// read, 0 at the end. Nothing when it can't be read.
std::optional<std::size_t> ReadSome(int descriptor, std::span<char> room);

// True when reading would surely not wait; also at the end.
bool InputWaits(int descriptor);

// POSIX systems alone have what follows.

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

}  // namespace quillbox
