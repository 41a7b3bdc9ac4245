#include "qt_base/own_process.h"

#include <QPixmapCache>
#include <csignal>
#include <cstdlib>

#ifdef __linux__
#include <sys/prctl.h>
#endif

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace quillbox {

void EndWithParent() {
#ifdef __linux__
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
}

// Qt keeps up to 10 MB of pictures in case that they are shown again. Other C libraries than this
// one give their heap back by themselves.
void GiveBackSpareMemory() {
  QPixmapCache::clear();
#ifdef __GLIBC__
  ::malloc_trim(0);
#endif
}

}  // namespace quillbox
