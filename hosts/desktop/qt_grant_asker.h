// Grants by the fetch program, which opens the consent page.
#pragma once

#include <sys/types.h>

#include <string>

#include "platform/grant_asker.h"

namespace quillbox {

// Each asking is a run of `dl authorize`; it ends with the program, however that ends.
class QtGrantAsker : public GrantAsker {
 public:
  // `program`: full path of the fetch program, in the host's bytes. `fileMask`: under which it
  // starts, and with it the person's browser.
  QtGrantAsker(std::string program, mode_t fileMask)
      : program_(std::move(program)), fileMask_(fileMask) {}

  std::unique_ptr<GrantAsking> Ask(const GrantQuestion& question,
                                   std::function<void(const GrantAnswer&)> done) override;

 private:
  const std::string program_;
  const mode_t fileMask_;
};

}  // namespace quillbox
