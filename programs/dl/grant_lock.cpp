#include "grant_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <thread>

#include "grant_files.h"

namespace quillbox {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kPause(10);

// For writing: a network folder locks nothing else.
int Open(const std::string& path) {
  return ::open(path.c_str(), O_RDWR | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK);
}

// False when another process has it.
bool TryLock(int file) {
  while (::flock(file, LOCK_EX | LOCK_NB) != 0) {
    if (errno != EINTR) return errno != EWOULDBLOCK;
  }
  return true;
}

bool LockUntil(int file, Clock::time_point end) {
  while (!TryLock(file)) {
    if (Clock::now() >= end) return false;
    std::this_thread::sleep_for(kPause);
  }
  return true;
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

GrantLock::GrantLock(const std::string& folder, std::string_view name,
                     std::chrono::milliseconds patience) {
  const std::string path = GrantPath(folder, name);
  const Clock::time_point end = Clock::now() + patience;
  for (file_ = Open(path); file_ >= 0; file_ = Open(path)) {
    ours_ = LockUntil(file_, end);
    if (!ours_ || StillStands(file_, path)) return;
    ::close(file_);
  }
}

GrantLock::~GrantLock() {
  if (file_ >= 0) ::close(file_);
}

}  // namespace quillbox
