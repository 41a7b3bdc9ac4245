// Who may change a file while other processes go on. Every lock ends with its process too.
#pragma once

#include <chrono>
#include <string>

namespace quillbox {

enum class LockState {
  kOurs,
  kTaken,  // another process had it all the time
  kNone,   // there is nothing to lock, or it can't be locked, as on some network folders
};

enum class Sharing { kShared, kAlone };

// A lock that lies on the file at a path, and follows when that is replaced.
class FileLock {
 public:
  // Waits at most `patience` while another process, which may have been stopped, has it.
  FileLock(const std::string& path, std::chrono::milliseconds patience);
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  LockState State() const { return state_; }

 private:
  int file_ = -1;
  LockState state_ = LockState::kNone;
};

// A lock that lies on a folder.
class FolderLock {
 public:
  // Waits at most `patience` for the others.
  FolderLock(const std::string& folder, Sharing sharing, std::chrono::milliseconds patience);
  ~FolderLock();
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

  LockState State() const { return state_; }

 private:
  int folder_;
  LockState state_ = LockState::kNone;
};

// Locks an open file, which stood at `path`, until it is closed; doesn't wait. kTaken also when it
// doesn't stand there any more.
LockState TryLockAt(int file, const std::string& path);

// Takes a file away unless a process has it under way (TryLockAt).
void RemoveUnlocked(const std::string& path);

}  // namespace quillbox
