// The demo service, running for one test.
#pragma once

#include <string>
#include <vector>

#include "dl/support/child_process.h"
#include "dl/support/folder.h"

namespace quillbox {

class DemoService {
 public:
  // Listens when this returns. `options`: its command line, beyond the port and the authority.
  explicit DemoService(std::vector<std::string> options = {});

  // "https://localhost:PORT" and `path`.
  std::string Address(const std::string& path) const { return base_ + path; }
  std::string AuthorityFile() const { return folder_.Path("authority.pem"); }

  ChildProcess& Process() { return process_; }

 private:
  Folder folder_;
  ChildProcess process_;
  std::string base_;
};

}  // namespace quillbox
