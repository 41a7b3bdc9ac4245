#include "result_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace quillbox {
namespace {

bool WriteAll(int file, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = ::write(file, content.data(), content.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

// Only a run that died under this process number can have left a file of this name.
int CreateAfresh(const std::string& path) {
  ::unlink(path.c_str());
  return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                S_IRUSR | S_IWUSR);
}

bool WriteFlushed(const std::string& path, std::string_view content) {
  const int file = CreateAfresh(path);
  if (file < 0) return false;
  const bool flushed = WriteAll(file, content) && ::fsync(file) == 0;
  return ::close(file) == 0 && flushed;
}

}  // namespace

void RemoveOldFile(const std::string& path) {
  ::unlink(path.c_str());
}

std::string PartPath(const std::string& path) {
  return path + "." + std::to_string(::getpid()) + ".part";
}

bool WriteWholeFile(const std::string& path, std::string_view content) {
  const std::string part = PartPath(path);
  const bool written = WriteFlushed(part, content) && std::rename(part.c_str(), path.c_str()) == 0;
  if (!written) ::unlink(part.c_str());
  return written;
}

}  // namespace quillbox
