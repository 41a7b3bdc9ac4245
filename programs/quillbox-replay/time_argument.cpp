#include "quillbox-replay/time_argument.h"

#include "system/system_clock.h"

namespace quillbox {

std::chrono::local_seconds TimeOf(const Request& request) {
  return request.Has("now") ? request.Time("now") : SystemClock().LocalTime();
}

}  // namespace quillbox
