#include "region/date_text.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "region/failure_rule.h"
#include "text/code_page.h"

namespace quillbox {
namespace {

using std::chrono::year_month_day;

struct DatePart {
  int Number = 0;
  std::size_t Digits = 0;  // how many were written; 0 for a month's name
};

bool IsBlank(char c) {
  return c == ' ' || c == '\xA0';
}
bool IsLetter(char c) {
  return IsAsciiSmall(c) || IsAsciiCapital(c) ||
         (static_cast<unsigned char>(c) >= 0x80 && !IsBlank(c));
}

// Takes the characters at the head for which `belongs` is true.
std::string_view TakeWhile(std::string_view& in, bool (*belongs)(char)) {
  const auto length =
      static_cast<std::size_t>(std::find_if_not(in.begin(), in.end(), belongs) - in.begin());
  const std::string_view taken = in.substr(0, length);
  in.remove_prefix(length);
  return taken;
}

// A short name may carry a point, and be written without it.
bool TakeName(std::string_view& in, std::string_view word, std::string_view name) {
  const bool pointed = name.ends_with('.');
  if (pointed) name.remove_suffix(1);
  if (!EqualIgnoringCase(word, name)) return false;
  if (pointed && in.starts_with('.')) in.remove_prefix(1);
  return true;
}

int TakeMonth(std::string_view& in, const RegionalSettings& region) {
  const std::string_view word = TakeWhile(in, IsLetter);
  if (word.empty()) throw ConversionFailed{};
  static const RegionalSettings kEnglish;
  for (const RegionalSettings* names : {&region, &kEnglish}) {
    for (std::size_t i = 0; i < names->Months.size(); ++i) {
      if (TakeName(in, word, names->Months[i]) || TakeName(in, word, names->MonthsShort[i])) {
        return static_cast<int>(i) + 1;
      }
    }
  }
  throw ConversionFailed{};
}

DatePart TakePart(std::string_view& in, const RegionalSettings& region) {
  const std::string_view digits = TakeWhile(in, IsDigit);
  if (digits.size() > 4) throw ConversionFailed{};
  if (digits.empty()) return {TakeMonth(in, region), 0};
  int number = 0;
  for (const char digit : digits) number = number * 10 + (digit - '0');
  return {number, digits.size()};
}

// Takes one mark with blanks round it, blanks alone, or nothing, as between a month's name and a
// number. True when the mark is a comma.
bool TakeSeparator(std::string_view& in) {
  TakeWhile(in, IsBlank);
  const bool mark = !in.empty() && std::string_view("/-.,").find(in.front()) != in.npos;
  const bool comma = mark && in.front() == ',';
  if (mark) in.remove_prefix(1);
  TakeWhile(in, IsBlank);
  return comma;
}

std::vector<DatePart> TakeParts(std::string_view in, const RegionalSettings& region) {
  TakeWhile(in, IsBlank);
  while (!in.empty() && IsBlank(in.back())) in.remove_suffix(1);
  if (in.ends_with('.')) in.remove_suffix(1);  // as some regions close a date, or a short month
  std::vector<DatePart> parts;
  parts.reserve(3);
  parts.push_back(TakePart(in, region));
  bool comma = false;
  while (!in.empty()) {
    if (parts.size() == 3) throw ConversionFailed{};
    comma = TakeSeparator(in) || comma;
    parts.push_back(TakePart(in, region));
  }
  const bool named = std::ranges::count(parts, 0u, &DatePart::Digits) > 0;
  if (comma && !named) throw ConversionFailed{};
  return parts;
}

std::optional<int> YearOf(const DatePart& part) {
  if (part.Digits > 2) return part.Number >= 100 ? std::optional(part.Number) : std::nullopt;
  return part.Number < 30 ? 2000 + part.Number : 1900 + part.Number;
}

// `order` says with "d", "M" and "y" what each part is.
std::optional<year_month_day> InOrder(const std::vector<DatePart>& parts, std::string_view order,
                                      int currentYear) {
  const DatePart* day = nullptr;
  const DatePart* month = nullptr;
  std::optional<int> year = currentYear;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (order[i] == 'd') day = &parts[i];
    if (order[i] == 'M') month = &parts[i];
    if (order[i] == 'y') year = YearOf(parts[i]);
  }
  const bool named = std::ranges::count(parts, 0u, &DatePart::Digits) > 0;
  if (!year || day->Digits == 0 || day->Digits > 2 || month->Digits > 2) return std::nullopt;
  if (named && month->Digits != 0) return std::nullopt;
  const year_month_day date(std::chrono::year(*year),
                            std::chrono::month(static_cast<unsigned>(month->Number)),
                            std::chrono::day(static_cast<unsigned>(day->Number)));
  return date.ok() ? std::optional(date) : std::nullopt;
}

std::string WithoutYear(std::string order) {
  std::erase(order, 'y');
  return order;
}

std::string Exchanged(std::string order) {
  for (char& part : order) part = part == 'd' ? 'M' : part == 'M' ? 'd' : part;
  return order;
}

// "Mdy" of "M/d/yyyy".
std::string OrderOf(const std::string& shortDate) {
  std::string order;
  for (const char c : shortDate + "Mdy") {
    if (std::string_view("dMy").find(c) != std::string_view::npos && order.find(c) == order.npos)
      order += c;
  }
  return order;
}

// The orders to be tried after `order`, best first. Regions with the year in front also read it at
// the end.
std::vector<std::string> OtherOrders(const std::string& order) {
  const std::string dayAndMonth = WithoutYear(order);
  if (order == dayAndMonth) return {Exchanged(order)};
  return {Exchanged(order), "yMd", dayAndMonth + 'y', Exchanged(dayAndMonth) + 'y'};
}

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

year_month_day ToDate(std::string_view text, const RegionalSettings& region, int currentYear) {
  const std::vector<DatePart> parts = TakeParts(text, region);
  if (parts.size() < 2) throw ConversionFailed{};
  std::string order = OrderOf(region.ShortDate);
  if (parts.size() == 2) order = WithoutYear(order);
  // Nearly every date is in the region's own order; building the others costs more than reading it.
  if (const auto date = InOrder(parts, order, currentYear)) return *date;
  for (const std::string& other : OtherOrders(order)) {
    if (const auto date = InOrder(parts, other, currentYear)) return *date;
  }
  throw ConversionFailed{};
}

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
