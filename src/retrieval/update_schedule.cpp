#include "retrieval/update_schedule.h"

#include <limits>

#include "config/setting_keys.h"

namespace quillbox {

std::int16_t RateMinutes(std::string_view rate) {
  for (const UpdateRate& known : kUpdateRates) {
    if (known.Text == rate) return static_cast<std::int16_t>(known.Minutes);
  }
  return kDefaultUpdateMinutes;
}

std::int16_t CountMinute(std::int16_t minuteCount) {
  if (minuteCount == std::numeric_limits<std::int16_t>::max()) return minuteCount;
  return static_cast<std::int16_t>(minuteCount + 1);
}

bool RefreshDue(std::int16_t minuteCount, std::int16_t rateMinutes) {
  return minuteCount > rateMinutes - 1;
}

}  // namespace quillbox
