// Knowing whether this program runs already for this user, and waking that run.
#pragma once

namespace quillbox {

class SingleInstance {
 public:
  virtual ~SingleInstance() = default;

  // True when another process of this user has the program running. Otherwise this process is the
  // one from now on, until it ends.
  virtual bool AnotherInstanceRuns() = 0;

  // Tells the running instance "QuillboxLaunched"; returns when it was delivered, or after a
  // bounded time when it could not be.
  virtual void WakeRunningInstance() = 0;
};

}  // namespace quillbox
