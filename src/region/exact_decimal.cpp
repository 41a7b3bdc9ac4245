#include "region/exact_decimal.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "region/failure_rule.h"

namespace quillbox {
namespace {

constexpr int kDoubleDigits = 15;

// Whether the digits from `keep` on make the digit in front of them one higher.
bool RoundsUp(std::string_view digits, std::size_t keep, Rounding rounding) {
  if (digits[keep] != '5') return digits[keep] > '5';
  const bool half = keep + 1 == digits.size();
  if (!half || rounding == Rounding::kHalfAwayFromZero) return true;
  return keep > 0 && (digits[keep - 1] - '0') % 2 == 1;
}

// Adds one to the last digit. True when the number has grown by a digit in front.
bool Increment(std::string& digits) {
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
    if (*digit != '9') {
      ++*digit;
      return false;
    }
    *digit = '0';
  }
  digits.insert(digits.begin(), '1');
  return true;
}

}  // namespace

ExactDecimal::ExactDecimal(bool negative, std::string_view digits, std::int64_t point) {
  const std::size_t first = digits.find_first_not_of('0');
  if (first == std::string_view::npos) return;
  const std::size_t last = digits.find_last_not_of('0');
  negative_ = negative;
  digits_ = digits.substr(first, last + 1 - first);
  point_ = point - static_cast<std::int64_t>(first);
}

ExactDecimal ExactDecimal::OfDouble(double number) {
  if (!std::isfinite(number)) throw StepFailed{};
  std::array<char, 32> buffer;  // "d.dddddddddddddde-308"
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(number),
                                 std::chars_format::scientific, kDoubleDigits - 1)
                       .ptr;
  const char* exponentAt = buffer.data() + kDoubleDigits + 2;  // behind digits, point and "e"
  if (*exponentAt == '+') ++exponentAt;
  int exponent = 0;
  std::from_chars(exponentAt, end, exponent);
  buffer[1] = buffer[0];  // over the point
  return {number < 0, std::string_view(buffer.data() + 1, kDoubleDigits), exponent + 1};
}

ExactDecimal ExactDecimal::OfTenThousandths(std::int64_t amount) {
  std::array<char, 24> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), amount).ptr;
  std::string_view digits(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  if (amount < 0) digits.remove_prefix(1);
  return {amount < 0, digits, static_cast<std::int64_t>(digits.size()) - 4};
}

ExactDecimal ExactDecimal::Shifted(int places) const {
  ExactDecimal shifted = *this;
  if (!Zero()) shifted.point_ += places;
  return shifted;
}

ExactDecimal ExactDecimal::Rounded(int decimals, Rounding rounding) const {
  const std::int64_t keep = point_ + decimals;
  if (keep < 0) return {};
  if (keep >= static_cast<std::int64_t>(digits_.size())) return *this;
  const auto kept = static_cast<std::size_t>(keep);
  std::string digits = digits_.substr(0, kept);
  const bool grown = RoundsUp(digits_, kept, rounding) && Increment(digits);
  return {negative_, digits, point_ + (grown ? 1 : 0)};
}

double ExactDecimal::Value() const {
  if (Zero()) return 0;
  const std::string text =
      digits_ + 'e' + std::to_string(point_ - static_cast<std::int64_t>(digits_.size()));
  double value = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
  if (read.ec == std::errc::result_out_of_range) {
    if (point_ > 0) throw StepFailed{};
    return 0;
  }
  return negative_ ? -value : value;
}

std::int64_t ExactDecimal::WholePart() const {
  constexpr std::int64_t kMostDigits = std::numeric_limits<std::int64_t>::digits10 + 1;
  if (point_ <= 0) return 0;
  if (point_ > kMostDigits) throw StepFailed{};
  const std::string digits = WholeDigits();
  std::uint64_t magnitude = 0;  // 19 digits fit
  std::from_chars(digits.data(), digits.data() + digits.size(), magnitude);
  constexpr std::uint64_t kLargest = std::numeric_limits<std::int64_t>::max();
  if (magnitude > kLargest + (negative_ ? 1 : 0)) throw StepFailed{};
  return static_cast<std::int64_t>(negative_ ? 0 - magnitude : magnitude);
}

std::string ExactDecimal::WholeDigits() const {
  if (point_ <= 0) return "0";
  const auto places = static_cast<std::size_t>(point_);
  std::string whole = digits_.substr(0, places);
  whole.resize(places, '0');
  return whole;
}

std::string ExactDecimal::FractionDigits() const {
  if (point_ < 0) return std::string(static_cast<std::size_t>(-point_), '0') + digits_;
  const auto places = static_cast<std::size_t>(point_);
  return places < digits_.size() ? digits_.substr(places) : std::string();
}

std::string ExactDecimal::Text() const {
  std::string text = negative_ ? "-" : "";
  text += WholeDigits();
  const std::string fraction = FractionDigits();
  if (!fraction.empty()) text += '.' + fraction;
  return text;
}

std::strong_ordering ExactDecimal::operator<=>(const ExactDecimal& other) const {
  const auto sign = [](const ExactDecimal& number) {
    return number.Zero() ? 0 : number.negative_ ? -1 : 1;
  };
  if (sign(*this) != sign(other)) return sign(*this) <=> sign(other);
  const ExactDecimal& a = negative_ ? other : *this;  // of two negative numbers the longer is less
  const ExactDecimal& b = negative_ ? *this : other;
  if (a.point_ != b.point_) return a.point_ <=> b.point_;
  return a.digits_ <=> b.digits_;
}

}  // namespace quillbox
