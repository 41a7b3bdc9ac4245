#include "desktop/spare_memory.h"

#include <cstdlib>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace quillbox {

// Other C libraries do it by themselves.
void GiveBackSpareMemory() {
#ifdef __GLIBC__
  ::malloc_trim(0);
#endif
}

}  // namespace quillbox
