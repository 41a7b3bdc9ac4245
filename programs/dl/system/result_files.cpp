#include "system/result_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <utility>

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

// Blanks, which a file of text may end in.
bool TakeRoom(int file, std::size_t room) {
  return room == 0 || (WriteAll(file, std::string(room, ' ')) && ::fsync(file) == 0 &&
                       ::lseek(file, 0, SEEK_SET) == 0);
}

bool WriteFlushed(int file, std::string_view content) {
  return WriteAll(file, content) && ::ftruncate(file, static_cast<off_t>(content.size())) == 0 &&
         ::fsync(file) == 0;
}

}  // namespace

void RemoveOldFile(const std::string& path) {
  ::unlink(path.c_str());
}

std::string PartPath(const std::string& path) {
  return path + "." + std::to_string(::getpid()) + ".part";
}

ComingFile::ComingFile(std::string path, std::size_t room)
    : path_(std::move(path)), part_(PartPath(path_)), file_(CreateAfresh(part_)) {
  if (file_ < 0 || TakeRoom(file_, room)) return;
  ::close(std::exchange(file_, -1));
  ::unlink(part_.c_str());
}

ComingFile::~ComingFile() {
  if (file_ < 0) return;
  ::unlink(part_.c_str());
  ::close(file_);
}

bool ComingFile::Arrive(std::string_view content) {
  if (!IsMade()) return false;
  const bool arrived =
      WriteFlushed(file_, content) && std::rename(part_.c_str(), path_.c_str()) == 0;
  if (!arrived) ::unlink(part_.c_str());
  ::close(std::exchange(file_, -1));
  return arrived;
}

bool WriteWholeFile(const std::string& path, std::string_view content) {
  return ComingFile(path, 0).Arrive(content);
}

}  // namespace quillbox
