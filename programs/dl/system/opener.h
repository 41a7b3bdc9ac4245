// The person's own program for an address, as the desktop chooses it.
#pragma once

#include <optional>
#include <string>

namespace quillbox {

// The desktop's opener on its way. It may be the browser itself, and run for as long as that does.
class Opener {
 public:
  // Starts it for a web address, which every user of the machine can read. It inherits nothing of
  // ours: no output, no ignored signal, no proxy with a password. `fileMask`: the mask for files
  // under which it runs.
  Opener(const std::string& address, unsigned fileMask);

  bool Started() const { return process_ >= 0; }

  // Whether it failed; nothing while it runs, and false when nobody tells how it ended.
  std::optional<bool> Failed() const;

 private:
  long process_ = -1;
};

}  // namespace quillbox
