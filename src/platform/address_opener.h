// Handing addresses and files to whatever the person opens them with.
#pragma once

#include <string>

namespace quillbox {

class AddressOpener {
 public:
  virtual ~AddressOpener() = default;

  // Opens an address (https, http or mailto; code page), or a file by its full path, in the
  // person's own program for it. Returns at once; a failure shows nothing. The target is never
  // logged.
  virtual void Open(const std::string& target) = 0;
};

}  // namespace quillbox
