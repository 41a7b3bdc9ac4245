// Programs that are started for the person: the fetch program on errands with secrets, and the
// desktop's own opener of addresses and files.
#pragma once

#include <sys/types.h>

#include <QString>
#include <string>
#include <utility>
#include <vector>

#include "config/application_folder.h"
#include "platform/agents.h"
#include "platform/surroundings.h"

namespace quillbox {

// Grants by the fetch program, which opens the consent page and gives grants back.
// Each asking is a run of `dl authorize`; it ends with the program, however that ends. Each
// forgetting is a run of `dl revoke`, which goes on without the program.
class QtGrantAsker : public GrantAsker {
 public:
  // `program`: full path of the fetch program, in the host's bytes. `fileMask`: under which it
  // starts, and with it the person's browser.
  QtGrantAsker(std::string program, mode_t fileMask)
      : program_(std::move(program)), fileMask_(fileMask) {}

  std::unique_ptr<GrantAsking> Ask(const GrantQuestion& question,
                                   std::function<void(const GrantAnswer&)> done) override;

  void Forget(const std::string& name,
              const std::vector<std::pair<std::string, std::string>>& environment) override;

 private:
  const std::string program_;
  const mode_t fileMask_;
};

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
