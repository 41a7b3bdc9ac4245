// The gate that one process of a user passes and at which later ones knock, and the folder for it.
#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>

namespace quillbox {

class FileDescriptor;

// XDG_RUNTIME_DIR, or the system's folder of that purpose, or a folder in the person's own cache:
// the first that is an absolute path, belongs to this user, can't be written by anybody else, and
// whose length is at most `longest`. The last is made when it isn't there. Never a folder that
// users share, where another one could take our names. Empty when there is none.
std::string RuntimeFolder(std::size_t longest);

// A lock file decides who passes; only then a socket beside it takes knocks. A socket alone can't
// decide: what a dead process left has to be removed, and two that start at once remove each
// other's.
class InstanceGate {
 public:
  // `folder` belongs to this user alone (RuntimeFolder). With an empty one everybody passes and
  // nobody hears a knock.
  explicit InstanceGate(const std::string& folder);
  ~InstanceGate();
  InstanceGate(const InstanceGate&) = delete;
  InstanceGate& operator=(const InstanceGate&) = delete;

  // The longest folder whose socket path the system can take.
  static constexpr std::size_t kLongestFolder = 90;

  // True for the one process that has passed, from then on until it ends. Never waits.
  bool Pass();

  // Readable when somebody knocks; -1 before Pass.
  int Door() const { return door_; }

  // Answers all who have knocked. Tells how many of them were this user.
  int AnswerKnocks();

  // True when the process that passed has answered. It may not listen yet, so there are several
  // tries within the time given.
  bool Knock(std::chrono::milliseconds patience);

  // Lets nobody knock any more. The lock stays until the process ends.
  void Close();

 private:
  const std::string lockPath_, socketPath_;
  std::unique_ptr<FileDescriptor> lock_;  // held: passed
  int door_ = -1;
};

}  // namespace quillbox
