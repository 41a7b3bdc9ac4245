// The right to exchange a grant, which one process at a time has.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace quillbox {

// It lies on the grant's own file, follows when that is replaced, and ends with the process too. A
// file that isn't there or can't be locked, as on some network folders, is free to everybody.
class GrantLock {
 public:
  // Waits at most `patience` while another process, which may have been stopped, has it.
  GrantLock(const std::string& folder, std::string_view name, std::chrono::milliseconds patience);
  ~GrantLock();
  GrantLock(const GrantLock&) = delete;
  GrantLock& operator=(const GrantLock&) = delete;

  // False when another process had it all the time.
  bool IsOurs() const { return ours_; }

 private:
  int file_ = -1;
  bool ours_ = true;
};

}  // namespace quillbox
