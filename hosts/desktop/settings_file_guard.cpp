#include "desktop/settings_file_guard.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "system/file_descriptor.h"

namespace quillbox {
namespace {

constexpr mode_t kOthers = S_IRWXG | S_IRWXO;

void TakeRightsOfOthers(const std::string& path) {
  const FileDescriptor file(path, O_RDONLY);
  struct stat found {};
  if (!file.IsOpen() || ::fstat(file.Number(), &found) != 0) return;
  if ((found.st_mode & kOthers) != 0) ::fchmod(file.Number(), found.st_mode & 07777 & ~kOthers);
}

}  // namespace

void KeepForOwnerAlone(const std::string& path) {
  const std::string folder = path.substr(0, path.rfind('/'));
  ::mkdir(folder.substr(0, folder.rfind('/')).c_str(), S_IRWXU);
  ::mkdir(folder.c_str(), S_IRWXU);
  TakeRightsOfOthers(folder);
  const FileDescriptor made(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, S_IRUSR | S_IWUSR);
  if (!made.IsOpen()) TakeRightsOfOthers(path);
}

FileMark MarkOf(const std::string& path) {
  struct stat found {};
  if (::stat(path.c_str(), &found) != 0) return {};
  return {found.st_ino, found.st_size, found.st_ctim.tv_sec, found.st_ctim.tv_nsec};
}

}  // namespace quillbox
