#include "system/file_locks.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <thread>

namespace quillbox {
namespace {

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

FileLock::FileLock(const std::string& path, std::chrono::milliseconds patience) {
  const Clock::time_point end = Clock::now() + patience;
  for (file_ = Open(path); file_ >= 0; file_ = Open(path)) {
    state_ = LockUntil(file_, LOCK_EX, end);
    if (state_ == LockState::kTaken || StillStands(file_, path)) return;
    ::close(file_);
  }
}

FileLock::~FileLock() {
  if (file_ >= 0) ::close(file_);
}

FolderLock::FolderLock(const std::string& folder, Sharing sharing,
                       std::chrono::milliseconds patience)
    : folder_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  if (folder_ < 0) return;
  const int kind = sharing == Sharing::kAlone ? LOCK_EX : LOCK_SH;
  state_ = LockUntil(folder_, kind, Clock::now() + patience);
}

FolderLock::~FolderLock() {
  if (folder_ >= 0) ::close(folder_);
}

LockState TryLockAt(int file, const std::string& path) {
  const LockState state = TryLock(file, LOCK_EX);
  return StillStands(file, path) ? state : LockState::kTaken;
}

void RemoveUnlocked(const std::string& path) {
  const int file = Open(path);
  if (file < 0) return;
  if (TryLockAt(file, path) == LockState::kOurs) ::unlink(path.c_str());
  ::close(file);
}

}  // namespace quillbox
