// Locks lie on bytes of a file of their own in the folder, far behind its end: here a file can't be
// replaced while somebody has it open.
#include "system/file_locks.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <cstdint>
#include <string_view>
#include <thread>

#include "system/windows/wide.h"

namespace quillbox {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kPause(10);
constexpr const char* kLocks = "/locks";
constexpr std::uint64_t kFolderByte = 0;

// Of a file, by its name (FNV-1a): two files that share a byte wait for each other, and no more.
std::uint64_t ByteOf(std::string_view name) {
  std::uint64_t hash = 14695981039346656037U;
  for (const char c : name) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
  return (hash >> 2) + 1;
}

int Open(const std::string& folder) {
  const HANDLE file =
      CreateFileW(Wide(folder + kLocks).c_str(), GENERIC_READ | GENERIC_WRITE,
                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_ALWAYS,
                  FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
  if (file == INVALID_HANDLE_VALUE) return -1;
  return _open_osfhandle(reinterpret_cast<std::intptr_t>(file), _O_BINARY);
}

LockState TryLock(int file, std::uint64_t byte, Sharing sharing) {
  OVERLAPPED place{};
  place.Offset = static_cast<DWORD>(byte);
  place.OffsetHigh = static_cast<DWORD>(byte >> 32);
  const DWORD alone = sharing == Sharing::kAlone ? LOCKFILE_EXCLUSIVE_LOCK : 0;
  const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(file));
  if (LockFileEx(handle, alone | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) != 0) {
    return LockState::kOurs;
  }
  const DWORD error = GetLastError();
  const bool taken = error == ERROR_LOCK_VIOLATION || error == ERROR_IO_PENDING;
  return taken ? LockState::kTaken : LockState::kNone;
}

LockState LockUntil(int file, std::uint64_t byte, Sharing sharing, Clock::time_point end) {
  for (;;) {
    const LockState state = TryLock(file, byte, sharing);
    if (state != LockState::kTaken || Clock::now() >= end) return state;
    std::this_thread::sleep_for(kPause);
  }
}

bool IsThere(const std::string& path) {
  return GetFileAttributesW(Wide(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace

FileLock::FileLock(const std::string& path, std::chrono::milliseconds patience) {
  if (!IsThere(path)) return;
  const std::size_t cut = path.find_last_of("/\\");
  file_ = Open(path.substr(0, cut));
  if (file_ < 0) return;
  state_ = LockUntil(file_, ByteOf(path.substr(cut + 1)), Sharing::kAlone, Clock::now() + patience);
}

FileLock::~FileLock() {
  if (file_ >= 0) _close(file_);
}

FolderLock::FolderLock(const std::string& folder, Sharing sharing,
                       std::chrono::milliseconds patience)
    : folder_(Open(folder)) {
  if (folder_ < 0) return;
  state_ = LockUntil(folder_, kFolderByte, sharing, Clock::now() + patience);
}

FolderLock::~FolderLock() {
  if (folder_ >= 0) _close(folder_);
}

// A file on its way is open for its own process alone, which is as good as a lock.
LockState TryLockAt(int, const std::string& path) {
  return IsThere(path) ? LockState::kOurs : LockState::kTaken;
}

void RemoveUnlocked(const std::string& path) {
  DeleteFileW(Wide(path).c_str());
}

}  // namespace quillbox
