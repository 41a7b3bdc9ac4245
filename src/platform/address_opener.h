// Handing addresses and files to whatever the person opens them with.
#pragma once

#include <string>

namespace quillbox {

class AddressOpener {
 public:
  virtual ~AddressOpener() = default;

  // Opens an address (https, http or mailto; code page), or a file by its full path, in the
  // person's own program for it. Returns at once; a failure shows nothing. The target is never
  // logged, but other users may be able to read it: it must hold no secret.
  virtual void Open(const std::string& target) = 0;

  // Opens an https address (visible ASCII) that holds a secret, so that no other user of the
  // machine can read it. Where that isn't possible nothing is opened. Otherwise as Open.
  virtual void OpenPrivately(const std::string& address) = 0;
};

}  // namespace quillbox
