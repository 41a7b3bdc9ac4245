#include "system/own_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
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

bool IsForOwnerAlone(int file) {
  struct stat status {};
  return ::fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == ::geteuid() &&
         (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

std::optional<std::string> ReadAll(int file, std::size_t mostBytes) {
  std::string text;
  char piece[4096];
  while (text.size() <= mostBytes) {
    const ssize_t got = ::read(file, piece, sizeof piece);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return std::nullopt;
    if (got == 0) return text;
    text.append(piece, static_cast<std::size_t>(got));
  }
  return std::nullopt;
}

std::string Variable(const char* name) {
  const char* const text = std::getenv(name);
  return text == nullptr ? "" : text;
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

std::optional<std::string> ReadOwnFile(const std::string& path, std::size_t mostBytes) {
  const int file = ::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK);
  if (file < 0) return std::nullopt;
  auto text = IsForOwnerAlone(file) ? ReadAll(file, mostBytes) : std::nullopt;
  ::close(file);
  return text;
}

std::optional<std::vector<std::string>> FilesIn(const std::string& folder) {
  DIR* const open = ::opendir(folder.c_str());
  if (open == nullptr) return std::nullopt;
  std::vector<std::string> names;
  while (const dirent* const entry = ::readdir(open)) names.emplace_back(entry->d_name);
  ::closedir(open);
  return names;
}

// It may have been there before, more open.
bool MakeOwnFolder(const std::string& folder) {
  for (std::size_t end = folder.find('/', 1);; end = folder.find('/', end + 1)) {
    const std::string part = folder.substr(0, end);
    if (::mkdir(part.c_str(), S_IRWXU) != 0 && errno != EEXIST) return false;
    if (end == std::string::npos) return ::chmod(folder.c_str(), S_IRWXU) == 0;
  }
}

void FlushFolder(const std::string& folder) {
  const int open = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (open < 0) return;
  ::fsync(open);
  ::close(open);
}

bool RemoveFile(const std::string& path) {
  return ::unlink(path.c_str()) == 0 || errno == ENOENT || errno == ENOTDIR;
}

// XDG_DATA_HOME, if it is absolute, else HOME.
std::string DataFolder() {
  const std::string data = Variable("XDG_DATA_HOME");
  if (data.starts_with('/')) return data;
  const std::string home = Variable("HOME");
  return home.starts_with('/') ? home + "/.local/share" : "";
}

}  // namespace quillbox
