#include "qt_base/spare_memory.h"

#include <QPixmapCache>
#include <cstdlib>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace quillbox {

// Qt keeps up to 10 MB of pictures in case that they are shown again. Other C libraries than this
// one give their heap back by themselves.
void GiveBackSpareMemory() {
  QPixmapCache::clear();
#ifdef __GLIBC__
  ::malloc_trim(0);
#endif
}

}  // namespace quillbox
