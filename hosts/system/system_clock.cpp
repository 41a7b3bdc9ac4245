#include "system/system_clock.h"

#include <ctime>

namespace quillbox {

std::chrono::local_seconds SystemClock::LocalTime() {
  using namespace std::chrono;
  const std::time_t now = system_clock::to_time_t(floor<seconds>(system_clock::now()));
  ::tzset();  // the person may have travelled since the last call
  std::tm parts = {};
  ::localtime_r(&now, &parts);
  const year_month_day date = year(parts.tm_year + 1900) /
                              month(static_cast<unsigned>(parts.tm_mon) + 1) /
                              day(static_cast<unsigned>(parts.tm_mday));
  return local_days(date) + hours(parts.tm_hour) + minutes(parts.tm_min) + seconds(parts.tm_sec);
}

TimePoint SystemClock::Now() {
  return std::chrono::duration_cast<TimePoint>(std::chrono::steady_clock::now().time_since_epoch());
}

}  // namespace quillbox
