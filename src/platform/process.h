// The program as a process of its user: what it was started with, whether it runs already, that it
// starts when the person signs in, and its end.
#pragma once

#include <string>
#include <string_view>

namespace quillbox {

// The environment that the program was started with.
class Environment {
 public:
  virtual ~Environment() = default;

  // The variable's value in the code page; its name is found in any case. The empty text when there
  // is no such variable or the code page can't hold its value.
  virtual std::string Variable(std::string_view name) = 0;
};

// Knowing whether this program runs already for this user, and waking that run.
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

// The host's own entry that starts the program when the person signs in.
// Failures are ignored: whether the entry is there tells.
class StartUpEntry {
 public:
  virtual ~StartUpEntry() = default;

  // Whether the entry is there and starts something.
  virtual bool Present() = 0;

  // Makes the entry for this program, in the place of what was there.
  virtual void Make() = 0;

  // Removing an entry that isn't there is a success.
  virtual void Remove() = 0;
};

class ProgramExit {
 public:
  virtual ~ProgramExit() = default;

  // Ends the process at once, whatever waits are nested in each other; agents that run are ended.
  [[noreturn]] virtual void EndProcess() = 0;
};

}  // namespace quillbox
