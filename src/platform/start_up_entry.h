// The host's own entry that starts the program when the person signs in.
#pragma once

namespace quillbox {

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

}  // namespace quillbox
