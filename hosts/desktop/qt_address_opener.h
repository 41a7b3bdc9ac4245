// Addresses and files in the person's own programs.
#pragma once

#include "config/application_folder.h"
#include "platform/address_opener.h"

namespace quillbox {

// Hands https, http and mailto addresses and files of the application's folders, and nothing else,
// to the desktop's own opener (xdg-open), byte for byte but for the encoding. What that writes goes
// nowhere: an address can hold a password.
class QtAddressOpener : public AddressOpener {
 public:
  explicit QtAddressOpener(ApplicationFolder folder) : folder_(std::move(folder)) {}

  void Open(const std::string& target) override;

 private:
  bool IsOwnFile(const std::string& path) const;

  const ApplicationFolder folder_;
};

}  // namespace quillbox
