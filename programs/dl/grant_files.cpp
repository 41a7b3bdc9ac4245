#include "grant_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <thread>
#include <utility>
#include <vector>

#include "text/grant_name.h"

namespace quillbox {
namespace {

constexpr std::size_t kMostBytes = 64 << 10;
constexpr int kMostTries = 5;
constexpr std::size_t kRoom = 32 << 10;  // the longest token, and what stands beside it

std::string Variable(const char* name) {
  const char* const text = std::getenv(name);
  return text == nullptr ? "" : text;
}

bool IsForOwnerAlone(int file) {
  struct stat status {};
  return ::fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == ::geteuid() &&
         (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

std::optional<std::string> ReadAll(int file) {
  std::string text;
  char piece[4096];
  while (text.size() <= kMostBytes) {
    const ssize_t got = ::read(file, piece, sizeof piece);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return std::nullopt;
    if (got == 0) return text;
    text.append(piece, static_cast<std::size_t>(got));
  }
  return std::nullopt;
}

std::optional<std::vector<std::string>> FilesIn(const std::string& folder) {
  DIR* const open = ::opendir(folder.c_str());
  if (open == nullptr) return std::nullopt;
  std::vector<std::string> names;
  while (const dirent* const entry = ::readdir(open)) names.emplace_back(entry->d_name);
  ::closedir(open);
  return names;
}

// A run has the lock of its place for as long as it lives; one without a lock was left.
void RemoveLeftPlaces(const std::string& folder) {
  for (const std::string& name : FilesIn(folder).value_or(std::vector<std::string>{})) {
    if (!name.ends_with(".part")) continue;
    const std::string path = folder + "/" + name;
    const int file = ::open(path.c_str(), O_RDWR | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) continue;
    if (TryLockAt(file, path) == LockState::kOurs) ::unlink(path.c_str());
    ::close(file);
  }
}

// With the folders above it, each for its owner alone.
bool MakeFolder(const std::string& folder) {
  for (std::size_t end = folder.find('/', 1);; end = folder.find('/', end + 1)) {
    const std::string part = folder.substr(0, end);
    if (::mkdir(part.c_str(), S_IRWXU) != 0 && errno != EEXIST) return false;
    if (end == std::string::npos) return true;
  }
}

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kPause(10);

// For writing: a network folder locks nothing else.
int Open(const std::string& path) {
  return ::open(path.c_str(), O_RDWR | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK);
}

LockState TryLock(int file, int kind) {
  while (::flock(file, kind | LOCK_NB) != 0) {
    if (errno != EINTR) return errno == EWOULDBLOCK ? LockState::kTaken : LockState::kNone;
  }
  return LockState::kOurs;
}

LockState LockUntil(int file, int kind, Clock::time_point end) {
  for (;;) {
    const LockState state = TryLock(file, kind);
    if (state != LockState::kTaken || Clock::now() >= end) return state;
    std::this_thread::sleep_for(kPause);
  }
}

// Who had the lock before may have put another file there.
bool StillStands(int file, const std::string& path) {
  struct stat ours {};
  struct stat there {};
  if (::fstat(file, &ours) != 0) return true;
  return ::lstat(path.c_str(), &there) == 0 && ours.st_dev == there.st_dev &&
         ours.st_ino == there.st_ino;
}

}  // namespace

std::string GrantFolder() {
  const std::string data = Variable("XDG_DATA_HOME");
  if (data.starts_with('/')) return data + "/Quillbox/grants";
  const std::string home = Variable("HOME");
  return home.starts_with('/') ? home + "/.local/share/Quillbox/grants" : "";
}

// The name's letters alone: a colon has a meaning in file names on some systems.
std::string GrantPath(const std::string& folder, std::string_view name) {
  return folder + "/" + std::string(name.substr(kGrantNamePrefix.size()));
}

std::optional<Grant> LoadGrant(const std::string& folder, std::string_view name) {
  if (folder.empty() || !IsGrantName(name)) return std::nullopt;
  const int file =
      ::open(GrantPath(folder, name).c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK);
  if (file < 0) return std::nullopt;
  const auto text = IsForOwnerAlone(file) ? ReadAll(file) : std::nullopt;
  ::close(file);
  return text ? ParseGrant(*text) : std::nullopt;
}

// Once it is locked, nobody takes the place for one that was left; before, another run may have.
GrantPlace::GrantPlace(std::string folder, std::string_view name) : folder_(std::move(folder)) {
  if (folder_.empty() || !IsGrantName(name) || !MakeFolder(folder_)) return;
  // It may have been there before, more open.
  if (::chmod(folder_.c_str(), S_IRWXU) != 0) return;
  RemoveLeftPlaces(folder_);
  const std::string path = GrantPath(folder_, name);
  for (int tries = 0; tries < kMostTries; ++tries) {
    place_.emplace(path, kRoom);
    if (!place_->IsMade()) return;
    if (TryLockAt(place_->Descriptor(), PartPath(path)) != LockState::kTaken) return;
  }
  place_.reset();
}

// The folder is flushed too: what stood there before is worth nothing any more.
bool GrantPlace::Keep(const Grant& grant) {
  const std::string text = GrantText(grant);
  if (!place_ || text.size() > kMostBytes || !place_->Arrive(text)) return false;
  const int folder = ::open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return true;
  ::fsync(folder);
  ::close(folder);
  return true;
}

bool MayHoldAnother(const std::string& folder, std::string_view name, const std::string& clientId) {
  const auto files = FilesIn(folder);
  if (!files) return true;
  return std::ranges::any_of(*files, [&](const std::string& file) {
    const std::string other = std::string(kGrantNamePrefix) + file;
    if (other == name || !IsGrantName(other)) return false;
    const auto grant = LoadGrant(folder, other);
    return !grant || grant->Client.Id == clientId;
  });
}

bool RemoveGrant(const std::string& folder, std::string_view name) {
  if (folder.empty() || !IsGrantName(name)) return true;
  RemoveLeftPlaces(folder);
  return ::unlink(GrantPath(folder, name).c_str()) == 0 || errno == ENOENT || errno == ENOTDIR;
}

GrantLock::GrantLock(const std::string& folder, std::string_view name,
                     std::chrono::milliseconds patience) {
  const std::string path = GrantPath(folder, name);
  const Clock::time_point end = Clock::now() + patience;
  for (file_ = Open(path); file_ >= 0; file_ = Open(path)) {
    state_ = LockUntil(file_, LOCK_EX, end);
    if (state_ == LockState::kTaken || StillStands(file_, path)) return;
    ::close(file_);
  }
}

GrantLock::~GrantLock() {
  if (file_ >= 0) ::close(file_);
}

GrantFolderLock::GrantFolderLock(const std::string& folder, Sharing sharing,
                                 std::chrono::milliseconds patience)
    : folder_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  if (folder_ < 0) return;
  const int kind = sharing == Sharing::kAlone ? LOCK_EX : LOCK_SH;
  state_ = LockUntil(folder_, kind, Clock::now() + patience);
}

GrantFolderLock::~GrantFolderLock() {
  if (folder_ >= 0) ::close(folder_);
}

LockState TryLockAt(int file, const std::string& path) {
  const LockState state = TryLock(file, LOCK_EX);
  return StillStands(file, path) ? state : LockState::kTaken;
}

}  // namespace quillbox
