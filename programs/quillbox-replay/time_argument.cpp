#include "quillbox-replay/time_argument.h"

#include "system/system_clock.h"

namespace quillbox {

std::chrono::local_seconds TimeOf(const Request& request) {
  return request.Has("now") ? request.Time("now") : SystemClock().LocalTime();
}

int YearOf(std::chrono::local_seconds time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  return static_cast<int>(std::chrono::year_month_day(day).year());
}

}  // namespace quillbox
