#include "figures.h"

#include <time.h>

#include <algorithm>
#include <cstdio>
#include <random>

namespace quillbox {
namespace {

using std::chrono::seconds;
using std::chrono::system_clock;

std::tm LocalTime(system_clock::time_point time) {
  const std::time_t now = system_clock::to_time_t(time);
  std::tm local{};
  ::localtime_r(&now, &local);
  return local;
}

}  // namespace

DemoClock::DemoClock(double speed, seconds skew) : speed_(speed), skew_(skew), start_(Time()) {}

system_clock::time_point DemoClock::Time() const {
  return system_clock::now() + skew_;
}

Moment DemoClock::Now() const {
  const system_clock::time_point now = Time();
  const std::tm local = LocalTime(now);
  const std::chrono::year_month_day today(
      std::chrono::year(local.tm_year + 1900),
      std::chrono::month(static_cast<unsigned>(local.tm_mon + 1)),
      std::chrono::day(static_cast<unsigned>(local.tm_mday)));
  const seconds ofDay(local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec);
  const seconds running =
      std::clamp(std::chrono::duration_cast<seconds>(now - start_), seconds(0), ofDay);
  const auto extra = static_cast<double>(running.count()) * (speed_ - 1);
  return {today, ofDay + seconds(static_cast<seconds::rep>(extra))};
}

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

namespace {

std::string ProductName(Product product) {
  switch (product) {
    case Product::kSearch:
      return "search";
    case Product::kReferrals:
      return "referrals";
    case Product::kContent:
      break;
  }
  return "content";
}

}  // namespace

std::string SourceName(const std::string& account, Product product, std::string_view channel) {
  const std::string source = account + "/" + ProductName(product);
  return channel.empty() ? source : source + "/" + std::string(channel);
}

std::string DateText(std::chrono::sys_days day) {
  const std::chrono::year_month_day date(day);
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
  return text;
}

std::string Hundredths(std::int64_t number) {
  const std::string fraction = std::to_string(number % 100);
  return std::to_string(number / 100) + (fraction.size() < 2 ? ".0" : ".") + fraction;
}

std::int64_t Ratio(std::int64_t part, std::int64_t factor, std::int64_t whole) {
  return whole == 0 ? 0 : part * factor / whole;
}

}  // namespace quillbox
