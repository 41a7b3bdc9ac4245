#include "system/file_descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace quillbox {
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
