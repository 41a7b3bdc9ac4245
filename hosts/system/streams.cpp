#include "system/streams.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>

namespace quillbox {

bool WriteAll(int descriptor, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = ::write(descriptor, content.data(), content.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

std::optional<std::size_t> ReadSome(int descriptor, std::span<char> room) {
  ssize_t count = 0;
  do {
    count = ::read(descriptor, room.data(), room.size());
  } while (count < 0 && errno == EINTR);
  if (count < 0) return std::nullopt;
  return static_cast<std::size_t>(count);
}

bool InputWaits(int descriptor) {
  pollfd input{descriptor, POLLIN, 0};
  return ::poll(&input, 1, 0) > 0;
}

namespace {

int Open(const std::string& path, int flags, unsigned mode) {
  int number = -1;
  do {
    number = ::open(path.c_str(), flags | O_CLOEXEC, mode);
  } while (number < 0 && errno == EINTR);
  return number;
}

}  // namespace

FileDescriptor::FileDescriptor(const std::string& path, int flags, unsigned mode)
    : number_(Open(path, flags, mode)) {}

FileDescriptor::~FileDescriptor() {
  Close();
}

bool FileDescriptor::Close() {
  if (number_ < 0) return true;
  const int number = number_;
  number_ = -1;
  return ::close(number) == 0 || errno == EINTR;  // an interrupted close has closed the file
}

}  // namespace quillbox
