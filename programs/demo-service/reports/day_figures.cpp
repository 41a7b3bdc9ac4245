#include "reports/day_figures.h"

#include <random>

namespace quillbox {
namespace {

// Fowler, Noll and Vo's hash: unlike std::hash the same on every system.
std::uint64_t HashOf(std::string_view text) {
  std::uint64_t hash = 14695981039346656037U;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
  return hash;
}

std::int64_t Between(std::mt19937_64& random, std::int64_t least, std::int64_t most) {
  const auto width = static_cast<std::uint64_t>(most - least + 1);
  return least + static_cast<std::int64_t>(random() % width);
}

}  // namespace

DayFigures& DayFigures::operator+=(const DayFigures& other) {
  Impressions += other.Impressions;
  Clicks += other.Clicks;
  SignUps += other.SignUps;
  EarningsCents += other.EarningsCents;
  return *this;
}

DayFigures DayFigures::operator/(std::int64_t parts) const {
  return {Impressions / parts, Clicks / parts, SignUps / parts, EarningsCents / parts};
}

DayFigures FiguresOfDay(std::uint64_t seed, std::string_view source, std::chrono::sys_days day,
                        std::chrono::seconds grown) {
  const auto dayNumber = static_cast<std::uint64_t>(day.time_since_epoch().count());
  std::mt19937_64 random(seed ^ HashOf(source) ^ (dayNumber * 0x9E3779B97F4A7C15U));
  const std::int64_t impressionsPerDay = Between(random, 2500, 6000);
  const std::int64_t clicksPerThousand = Between(random, 8, 30);
  const std::int64_t signUpsPerThousand = Between(random, 1, 4);
  const std::int64_t centsPerClick = Between(random, 6, 24);

  DayFigures figures;
  figures.Impressions = impressionsPerDay * grown.count() / 86'400;
  figures.Clicks = figures.Impressions * clicksPerThousand / 1000;
  figures.SignUps = figures.Impressions * signUpsPerThousand / 1000;
  figures.EarningsCents = figures.Clicks * centsPerClick + figures.Impressions / 50;
  return figures;
}

}  // namespace quillbox
