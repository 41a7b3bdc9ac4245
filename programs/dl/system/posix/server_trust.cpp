#include "system/server_trust.h"

namespace quillbox {

bool ChecksServersItself() {
  return false;
}

bool IsTrustedServer(void*, const std::string&, const std::string&) {
  return true;
}

}  // namespace quillbox
