// The made-up figures: the clock by which they grow, what earns them, and how reports write them.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillbox {

// When a report is made.
struct Moment {
  std::chrono::sys_days Today;
  std::chrono::seconds Grown;  // how far the figures of today have come; may exceed a day

  // How far those of a day of the past, or of today, have come.
  std::chrono::seconds GrownOn(std::chrono::sys_days day) const {
    return day == Today ? Grown : std::chrono::days(1);
  }
};

// The clock by which the demo's figures grow.
class DemoClock {
 public:
  // `speed`: how many times faster than the day the figures grow from now on, 1 or more. `skew`:
  // how far this clock is ahead of the machine's.
  DemoClock(double speed, std::chrono::seconds skew);

  // The time by this clock.
  std::chrono::system_clock::time_point Time() const;

  // Today by the local calendar. Within a day the growth never falls.
  Moment Now() const;

 private:
  double speed_;
  std::chrono::seconds skew_;
  std::chrono::system_clock::time_point start_;
};

// Of one day, or of several joined.
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

enum class Product { kContent, kSearch, kReferrals };

// The channels that each account has.
inline constexpr std::array<std::string_view, 3> kChannels = {"Front page", "Articles", "Archive"};

// How far before today the oldest day with figures lies.
inline constexpr std::chrono::days kOldestFigures{119};

// The source of FiguresOfDay. `channel`: one of kChannels, or empty for the product as a whole,
// whose figures are its own and not the channels' sum.
std::string SourceName(const std::string& account, Product product, std::string_view channel);

// yyyy-mm-dd.
std::string DateText(std::chrono::sys_days day);

// `number` counts hundredths and is not negative: 105 is "1.05".
std::string Hundredths(std::int64_t number);

// part * factor / whole, rounded down; 0 without a whole.
std::int64_t Ratio(std::int64_t part, std::int64_t factor, std::int64_t whole);

}  // namespace quillbox
