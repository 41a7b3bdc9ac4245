// Addresses and files in the person's own programs.
#pragma once

#include "platform/address_opener.h"

namespace quillbox {

// Opens nothing but https, http and mailto addresses and files by their full path.
class QtAddressOpener : public AddressOpener {
 public:
  void Open(const std::string& target) override;
};

}  // namespace quillbox
