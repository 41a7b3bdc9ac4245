// The files in which grants are kept, one a grant, for their owner alone, and who may change them.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "api/grant.h"
#include "system/result_files.h"

namespace quillbox {

// Quillbox/grants in the person's folder for data; empty when the environment names none
// (XDG_DATA_HOME, if it is absolute, else HOME).
std::string GrantFolder();

// Of a grant's file. `name` must be a grant's name (IsGrantName).
std::string GrantPath(const std::string& folder, std::string_view name);

// Nothing for a name that is no grant's. A file that is a link, belongs to somebody else or is open
// to others is not read.
std::optional<Grant> LoadGrant(const std::string& folder, std::string_view name);

// Where a grant's file will come to stand: room for it is on the disk before the service makes the
// grant, which may be the end of the one before. Goes again if no grant comes.
class GrantPlace {
 public:
  // Makes the folder if it isn't there. What earlier runs left of such places goes.
  GrantPlace(std::string folder, std::string_view name);

  // False when there is no room, or no such file can be made.
  bool IsMade() const { return place_ && place_->IsMade(); }

  // The file has the whole grant or isn't changed; false then. To be called once.
  bool Keep(const Grant& grant);

 private:
  const std::string folder_;
  std::optional<ComingFile> place_;
};

// Whether a file in the folder, other than that of `name`, may hold a grant to the client: one that
// can't be read may hold any. True also when the folder can't be read.
bool MayHoldAnother(const std::string& folder, std::string_view name, const std::string& clientId);

// Takes the file away, be it readable or not, with what runs that were killed left of it; a link
// goes, not what it leads to. Whether none is left, also when there was none.
bool RemoveGrant(const std::string& folder, std::string_view name);

// Who may do what with grants while other runs go on. Every lock ends with its process too.

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
