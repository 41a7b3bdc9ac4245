#include "qt_base/end_with_parent.h"

#ifdef __linux__
#include <sys/prctl.h>

#include <csignal>
#endif

namespace quillbox {

void EndWithParent() {
#ifdef __linux__
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
}

}  // namespace quillbox
