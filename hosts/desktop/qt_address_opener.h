// Addresses and files in the person's own programs.
#pragma once

#include <sys/types.h>

#include <QString>

#include "config/application_folder.h"
#include "platform/surroundings.h"

namespace quillbox {

// Hands https, http and mailto addresses and files of the application's folders, and nothing else,
// to the desktop's own opener (xdg-open), byte for byte but for the encoding; addresses that hold a
// secret by way of the fetch program (`dl open`). What those write goes nowhere.
class QtAddressOpener : public AddressOpener {
 public:
  // What is opened runs with this file mask, whatever the program's own is.
  QtAddressOpener(ApplicationFolder folder, mode_t fileMask)
      : folder_(std::move(folder)), fileMask_(fileMask) {}

  void Open(const std::string& target) override;
  void OpenPrivately(const std::string& address) override;

 private:
  void HandToDesktop(const QString& target) const;
  bool IsOwnFile(const std::string& path) const;

  const ApplicationFolder folder_;
  const mode_t fileMask_;
};

}  // namespace quillbox
