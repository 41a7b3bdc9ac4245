#include "demo_clock.h"

#include <time.h>

#include <algorithm>

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

}  // namespace quillbox
