// The made-up figures of one day.
#pragma once

#include <chrono>
#include <cstdint>
#include <string_view>

namespace quillbox {

struct DayFigures {
  std::int64_t Impressions = 0;
  std::int64_t Clicks = 0;
  std::int64_t SignUps = 0;
  std::int64_t EarningsCents = 0;

  DayFigures& operator+=(const DayFigures& other);
  DayFigures operator/(std::int64_t parts) const;
  bool operator==(const DayFigures&) const = default;
};

// `source` names what earns (an account and product, say): each has figures of its own. The same
// arguments always give the same figures, and no figure falls while `grown` (counted from the day's
// beginning, may exceed a day) rises.
DayFigures FiguresOfDay(std::uint64_t seed, std::string_view source, std::chrono::sys_days day,
                        std::chrono::seconds grown);

}  // namespace quillbox
