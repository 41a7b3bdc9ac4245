#include "system/process_protection.h"

#include <sys/resource.h>
#include <sys/stat.h>

#ifdef __linux__
#include <sys/prctl.h>
#endif

namespace quillbox {

mode_t ProtectProcess() {
  const mode_t before = ::umask(S_IRWXG | S_IRWXO);
  const rlimit none{};
  ::setrlimit(RLIMIT_CORE, &none);
#ifdef __linux__
  ::prctl(PR_SET_DUMPABLE, 0);
#endif
  return before;
}

}  // namespace quillbox
