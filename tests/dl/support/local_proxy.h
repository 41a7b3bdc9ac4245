// A real proxy (tinyproxy), running for one test.
#pragma once

#include <memory>
#include <string>

#include "dl/support/child_process.h"
#include "dl/support/folder.h"

namespace quillbox {

class LocalProxy {
 public:
  static bool Installed();

  // Takes connections when this returns. `configuration`: lines beyond port, address and log.
  explicit LocalProxy(const std::string& configuration);

  std::string Address() const;  // "http://127.0.0.1:PORT"

  // What it has logged so far.
  std::string Log() const;

 private:
  Folder folder_;
  int port_;
  std::unique_ptr<ChildProcess> process_;
};

// A port of the loopback interface that was free a moment ago.
int FreePort();

}  // namespace quillbox
