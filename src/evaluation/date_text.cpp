#include <string>

#include "evaluation/date_text.h"

namespace quillbox {
namespace {

std::string TwoDigits(unsigned number) {
  return {static_cast<char>('0' + number / 10 % 10), static_cast<char>('0' + number % 10)};
}

std::string FourDigits(unsigned number) {
  return TwoDigits(number / 100) + TwoDigits(number);
}

struct DateToken {
  std::string_view Token;
  std::string Text;
};

}  // namespace

int YearOf(std::chrono::local_seconds time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  return static_cast<int>(std::chrono::year_month_day(day).year());
}

std::string ShortDate(std::chrono::year_month_day date, const RegionalSettings& region) {
  const auto day = static_cast<unsigned>(date.day());
  const auto month = static_cast<unsigned>(date.month());
  const auto year = static_cast<unsigned>(static_cast<int>(date.year()));
  const DateToken tokens[] = {{"yyyy", FourDigits(year)}, {"yy", TwoDigits(year)},
                              {"MM", TwoDigits(month)},   {"M", std::to_string(month)},
                              {"dd", TwoDigits(day)},     {"d", std::to_string(day)}};
  std::string text;
  for (std::string_view form = region.ShortDate; !form.empty();) {
    const DateToken* found = nullptr;
    for (const DateToken& token : tokens) {
      if (found == nullptr && form.starts_with(token.Token)) found = &token;
    }
    text += found != nullptr ? std::string_view(found->Text) : form.substr(0, 1);
    form.remove_prefix(found != nullptr ? found->Token.size() : 1);
  }
  return text;
}

std::string TimeText(std::chrono::seconds timeOfDay, bool use24Hour,
                     const RegionalSettings& region) {
  const std::chrono::hh_mm_ss time(timeOfDay);
  const auto hour = static_cast<unsigned>(time.hours().count());
  const std::string minutes =
      region.TimeSeparator + TwoDigits(static_cast<unsigned>(time.minutes().count()));
  if (use24Hour) return TwoDigits(hour) + minutes;
  const std::string& mark = hour < 12 ? region.Am : region.Pm;
  const unsigned hourOfTwelve = hour % 12 == 0 ? 12 : hour % 12;
  return std::to_string(hourOfTwelve) + minutes + (mark.empty() ? "" : " " + mark);
}

}  // namespace quillbox
