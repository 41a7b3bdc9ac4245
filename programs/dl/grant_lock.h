// Who may do what with grants while other runs go on. Every lock ends with its process too.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace quillbox {

enum class LockState {
  kOurs,
  kTaken,  // another process had it all the time
  kNone,   // there is nothing to lock, or it can't be locked, as on some network folders
};

// The right to exchange a grant, which one process at a time has. It lies on the grant's own file
// and follows when that is replaced. What can't be locked is free to everybody.
class GrantLock {
 public:
  // Waits at most `patience` while another process, which may have been stopped, has it.
  GrantLock(const std::string& folder, std::string_view name, std::chrono::milliseconds patience);
  ~GrantLock();
  GrantLock(const GrantLock&) = delete;
  GrantLock& operator=(const GrantLock&) = delete;

  // False when another process had it all the time.
  bool IsOurs() const { return state_ != LockState::kTaken; }

 private:
  int file_ = -1;
  LockState state_ = LockState::kNone;
};

// Which grants there are: shared by the runs that are about to add one, from before the service
// makes it until its file is there; alone for the run that looks whether a grant is the last one,
// until the service has taken it back.
class GrantFolderLock {
 public:
  enum class Sharing { kShared, kAlone };

  // Waits at most `patience` for the others.
  GrantFolderLock(const std::string& folder, Sharing sharing, std::chrono::milliseconds patience);
  ~GrantFolderLock();
  GrantFolderLock(const GrantFolderLock&) = delete;
  GrantFolderLock& operator=(const GrantFolderLock&) = delete;

  LockState State() const { return state_; }

 private:
  int folder_;
  LockState state_ = LockState::kNone;
};

// Locks an open file, which stood at `path`, until it is closed; doesn't wait. kTaken also when it
// doesn't stand there any more.
LockState TryLockAt(int file, const std::string& path);

}  // namespace quillbox
