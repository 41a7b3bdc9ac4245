// The fetch program on errands with secrets: it makes grants, gives them back, and opens addresses.
#pragma once

#include <sys/types.h>

#include <QProcessEnvironment>
#include <string>
#include <utility>
#include <vector>

#include "platform/agents.h"

namespace quillbox {

struct HandOver {
  QString Program;   // full path of the fetch program
  QString Command;   // its argument
  std::string Line;  // its input, without the line end
  QProcessEnvironment Environment = QProcessEnvironment::systemEnvironment();
  mode_t FileMask = 0;  // under which it starts
};

// Starts it; it goes on when this program ends. The line has left this program when this returns,
// since the program may end right then; it is to be short enough for a pipe (64 KiB), or this waits
// until it is read, two seconds at most. That it can't be started shows nothing.
void HandToFetchProgram(const HandOver& handOver);

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

}  // namespace quillbox
