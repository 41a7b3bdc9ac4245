#include "system/system_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>

#include "system/streams.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

// Nothing when there is no regular file at `path`.
std::optional<struct stat> RegularFile(const std::string& path) {
  struct stat status = {};
  if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  return status;
}

bool IsReadable(const FileDescriptor& file) {
  struct stat status = {};
  return file.IsOpen() && ::fstat(file.Number(), &status) == 0 && S_ISREG(status.st_mode) &&
         static_cast<std::uint64_t>(status.st_size) <= SystemFiles::kLargestFile;
}

// Also true when there is nothing at `path`.
bool MayBeReplaced(const std::string& path) {
  struct stat status = {};
  if (::lstat(path.c_str(), &status) != 0) return errno == ENOENT;
  if (S_ISLNK(status.st_mode)) return true;
  return S_ISREG(status.st_mode) && ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

bool Flushed(const FileDescriptor& file) {
  int result = -1;
  do {
    result = ::fsync(file.Number());
  } while (result != 0 && errno == EINTR);
  return result == 0;
}

}  // namespace

bool SystemFiles::Exists(const std::string& path) {
  return RegularFile(path).has_value();
}

std::optional<std::uint64_t> SystemFiles::Size(const std::string& path) {
  const std::optional<struct stat> status = RegularFile(path);
  if (!status) return std::nullopt;
  return static_cast<std::uint64_t>(status->st_size);
}

std::optional<std::string> SystemFiles::Read(const std::string& path) {
  // Without O_NONBLOCK the opening of a pipe would wait for its writer.
  const FileDescriptor file(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
  if (!IsReadable(file)) return std::nullopt;

  std::string content;
  std::array<char, 64U << 10U> block;
  for (;;) {
    const ssize_t count = ::read(file.Number(), block.data(), block.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) return content;
    content.append(block.data(), static_cast<std::size_t>(count));
    if (content.size() > kLargestFile) return std::nullopt;  // it grew meanwhile
  }
}

bool SystemFiles::WriteNew(const std::string& path, const std::string& content) {
  FileDescriptor file(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, S_IRUSR | S_IWUSR);
  if (!file.IsOpen()) return false;
  const bool isWritten = WriteAll(file.Number(), content);
  if (file.Close() && isWritten) return true;
  ::unlink(path.c_str());
  return false;
}

bool SystemFiles::Flush(const std::string& path) {
  const FileDescriptor file(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
  return file.IsOpen() && Flushed(file);
}

bool SystemFiles::Rename(const std::string& from, const std::string& to) {
  return MayBeReplaced(to) && ::rename(from.c_str(), to.c_str()) == 0;
}

bool SystemFiles::Remove(const std::string& path) {
  return ::unlink(path.c_str()) == 0 || errno == ENOENT || errno == ENOTDIR;
}

std::vector<std::string> SystemFiles::List(const std::string& folder, const std::string& pattern) {
  std::vector<std::string> names;
  std::error_code error;
  std::filesystem::directory_iterator entry(folder, error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    std::error_code statusError;
    const std::string name = entry->path().filename().string();
    if (entry->is_regular_file(statusError) && MatchesFilePattern(name, pattern)) {
      names.push_back(name);
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace quillbox
