#include "reports/figure_texts.h"

#include <cstdio>

namespace quillbox {

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
