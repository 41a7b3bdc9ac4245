#include "system/settings_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <thread>

#include "config/atomic_write.h"
#include "system/streams.h"
#include "system/system_surroundings.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;

constexpr int kToLookAt = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW;

std::string SettingsFolder() {
  const std::string config = ConfigFolder();
  return config.empty() ? "" : config + "/Quillbox";
}

// With the folders above it, each for its owner alone.
void MakeFolder(const std::string& folder) {
  for (std::size_t end = 0; end != std::string::npos;) {
    end = folder.find('/', end + 1);
    ::mkdir(folder.substr(0, end).c_str(), S_IRWXU);
  }
}

// Rights are only ever taken: what is read-only stays so.
void TakeRightsOfOthers(const FileDescriptor& file) {
  constexpr mode_t kOthers = S_IRWXG | S_IRWXO;
  struct stat found {};
  if (!file.IsOpen() || ::fstat(file.Number(), &found) != 0) return;
  if ((found.st_mode & kOthers) != 0) ::fchmod(file.Number(), found.st_mode & 07777 & ~kOthers);
}

// False when another process holds the lock all the time. Where there can be no lock (a folder that
// may not be read, a file system without locks), saving is better than none.
bool Lock(const FileDescriptor& folder, std::chrono::milliseconds patience) {
  const auto end = std::chrono::steady_clock::now() + patience;
  while (::flock(folder.Number(), LOCK_EX | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK && errno != EINTR) return true;
    if (std::chrono::steady_clock::now() >= end) return false;
    std::this_thread::sleep_for(5ms);
  }
  return true;
}

// Whether a file that changes from now on gets another time of change: file systems count in ticks
// of up to 10 ms.
bool IsPast(const timespec& time) {
  const auto since = std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
  return std::chrono::system_clock::now().time_since_epoch() - since > 50ms;
}

}  // namespace

SettingsFile::SettingsFile(Files& files, std::chrono::milliseconds patience)
    : files_(files),
      folder_(SettingsFolder()),
      path_(folder_.empty() ? "" : folder_ + "/Quillbox.conf"),
      patience_(patience) {}

// Null when something is there that can't be read.
SettingsText* SettingsFile::Load() {
  struct stat found {};
  if (::lstat(path_.c_str(), &found) != 0) {
    if (errno != ENOENT && errno != ENOTDIR) return nullptr;
    Take("");
    return &settings_;
  }
  // The mark is taken before the reading: a file that is replaced in between is read once more.
  if (::stat(path_.c_str(), &found) != 0) return nullptr;
  const Mark mark{found.st_dev, found.st_ino, found.st_size, found.st_ctim.tv_sec,
                  found.st_ctim.tv_nsec};
  if (mark == mark_) return &settings_;

  if (static_cast<std::uint64_t>(found.st_size) > kLargest) return nullptr;
  std::optional<std::string> text = files_.Read(path_);
  if (!text || text->size() > kLargest) return nullptr;
  Take(std::move(*text));
  if (IsPast(found.st_ctim)) mark_ = mark;
  return &settings_;
}

// Parsing a large text takes far longer than comparing it.
void SettingsFile::Take(std::string text) {
  mark_.reset();
  if (text == text_) return;
  settings_ = SettingsText(text);
  text_ = std::move(text);
}

std::string SettingsFile::Read(std::string_view section, std::string_view key) {
  const SettingsText* const settings = Load();
  return settings == nullptr ? "" : std::string(settings->Value(section, key));
}

// The folder itself is what is locked: nothing can stand in the lock's place, and nothing is left.
bool SettingsFile::Apply(std::span<const SettingChange> changes) {
  if (path_.empty()) return false;
  MakeFolder(folder_);
  const FileDescriptor folder(folder_, kToLookAt | O_DIRECTORY);
  TakeRightsOfOthers(folder);
  gaveUpWaiting_ = !Lock(folder, gaveUpWaiting_ ? 0ms : patience_);
  return !gaveUpWaiting_ && Save(changes);
}

bool SettingsFile::Save(std::span<const SettingChange> changes) {
  SettingsText* const settings = Load();
  if (settings == nullptr) return false;
  TakeRightsOfOthers(FileDescriptor(path_, kToLookAt));

  bool isChanged = false;
  for (const SettingChange& change : changes) isChanged = settings->Apply(change) || isChanged;
  if (!isChanged) return true;  // the disk has it already, and a save takes milliseconds
  mark_.reset();
  text_.reset();
  std::string text = settings->Text();
  if (text.size() > kLargest || !WriteAtomically(files_, path_, text)) return false;
  text_ = std::move(text);
  return true;
}

}  // namespace quillbox
