// When the next automatic refresh is due.
#pragma once

#include <cstdint>
#include <string_view>

namespace quillbox {

// The minutes of a text of Rate; 15 for every other text.
std::int16_t RateMinutes(std::string_view rate);

// One minute more, kept within 16 signed bits.
std::int16_t CountMinute(std::int16_t minuteCount);

// Whether a refresh is due after `minuteCount` minutes.
bool RefreshDue(std::int16_t minuteCount, std::int16_t rateMinutes);

}  // namespace quillbox
