// Being an ordinary user for a while: root can do what others can't, which hides faults.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "support/child_process.h"

namespace quillbox {

// Ordinary rights while it lives, for a test that runs as root; the folders become that user's.
class OrdinaryUser {
 public:
  explicit OrdinaryUser(const std::vector<std::string>& folders) : wasRoot_(::geteuid() == 0) {
    if (!wasRoot_) return;
    bool done = true;
    for (const std::string& folder : folders) {
      done = ::chown(folder.c_str(), kNobody, kNobody) == 0 && done;
    }
    if (!done || ::seteuid(kNobody) != 0) ADD_FAILURE() << "can't become an ordinary user";
  }
  ~OrdinaryUser() {
    if (wasRoot_ && ::seteuid(0) != 0) ADD_FAILURE() << "can't become root again";
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  const bool wasRoot_;
};

}  // namespace quillbox
