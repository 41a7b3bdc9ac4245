// The twin of the guards for systems that have none beyond the common ones.
#include "secrecy.h"

namespace quillbox {

void ForbidInspection() {}

}  // namespace quillbox
