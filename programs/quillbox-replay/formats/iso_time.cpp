#include "quillbox-replay/formats/iso_time.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace quillbox {
namespace {

// Takes exactly `digits` digits from the front.
bool TakeNumber(std::string_view& in, std::size_t digits, int& number) {
  if (in.size() < digits) return false;
  number = 0;
  for (const char c : in.substr(0, digits)) {
    if (c < '0' || c > '9') return false;
    number = number * 10 + (c - '0');
  }
  in.remove_prefix(digits);
  return true;
}

bool TakeChar(std::string_view& in, char wanted) {
  if (in.empty() || in.front() != wanted) return false;
  in.remove_prefix(1);
  return true;
}

template <typename... Numbers>
std::string Format(const char* form, Numbers... numbers) {
  std::array<char, 64> text{};
  const int length = std::snprintf(text.data(), text.size(), form, numbers...);
  return {text.data(), static_cast<std::size_t>(std::max(length, 0))};
}

}  // namespace

std::optional<std::chrono::year_month_day> ParseDate(std::string_view text) {
  int year = 0;
  int month = 0;
  int day = 0;
  const bool formed = TakeNumber(text, 4, year) && TakeChar(text, '-') &&
                      TakeNumber(text, 2, month) && TakeChar(text, '-') &&
                      TakeNumber(text, 2, day) && text.empty();
  const std::chrono::year_month_day date{std::chrono::year(year),
                                         std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day))};
  if (!formed || !date.ok()) return std::nullopt;
  return date;
}

std::optional<std::chrono::seconds> ParseTimeOfDay(std::string_view text) {
  int hours = 0;
  int minutes = 0;
  int seconds = 0;
  const bool formed = TakeNumber(text, 2, hours) && TakeChar(text, ':') &&
                      TakeNumber(text, 2, minutes) && TakeChar(text, ':') &&
                      TakeNumber(text, 2, seconds) && text.empty();
  if (!formed || hours > 23 || minutes > 59 || seconds > 59) return std::nullopt;
  return std::chrono::hours(hours) + std::chrono::minutes(minutes) + std::chrono::seconds(seconds);
}

std::optional<std::chrono::local_seconds> ParseDateAndTime(std::string_view text) {
  const std::size_t middle = text.find('T');
  if (middle == text.npos) return std::nullopt;
  const auto date = ParseDate(text.substr(0, middle));
  const auto timeOfDay = ParseTimeOfDay(text.substr(middle + 1));
  if (!date || !timeOfDay) return std::nullopt;
  return std::chrono::local_seconds(std::chrono::local_days(*date)) + *timeOfDay;
}

std::string DateArgument(std::chrono::year_month_day date) {
  return Format("%04d-%02u-%02u", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
}

std::string DateAndTimeArgument(std::chrono::local_seconds time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::hh_mm_ss clock(time - day);
  return DateArgument(std::chrono::year_month_day(day)) +
         Format("T%02d:%02d:%02d", static_cast<int>(clock.hours().count()),
                static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()));
}

}  // namespace quillbox
