// The guards that Linux has beyond the common ones.
#include <sys/prctl.h>

#include "secrecy.h"

namespace quillbox {

void ForbidInspection() {
  ::prctl(PR_SET_DUMPABLE, 0, 0, 0, 0);
}

}  // namespace quillbox
