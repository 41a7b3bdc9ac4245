#include "system/watchdog.h"

#include "system/watch_state.h"

namespace quillbox {

void EndWatch() {
  if (watch.Stop()) AwaitEnd();
}

Unwatched::Unwatched() {
  if (watch.Hold()) AwaitEnd();
}

Unwatched::~Unwatched() {
  if (watch.Release()) EndOverdue();
}

}  // namespace quillbox
