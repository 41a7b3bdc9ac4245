// A decimal number of any length, without binary rounding.
#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillbox {

enum class Rounding { kHalfEven, kHalfAwayFromZero };

// Zero has no sign. Equal numbers are equal however they were written.
class ExactDecimal {
 public:
  ExactDecimal() = default;  // zero

  // 0.`digits` times ten to the power of `point`: (false, "125", 1) is 1.25. `digits` holds "0" to
  // "9" alone and may be empty.
  ExactDecimal(bool negative, std::string_view digits, std::int64_t point);

  // The number rounded to 15 significant digits. Throws StepFailed unless it is finite.
  static ExactDecimal OfDouble(double number);

  static ExactDecimal OfTenThousandths(std::int64_t amount);

  bool Negative() const { return negative_; }
  bool Zero() const { return digits_.empty(); }

  // Times ten to the power of `places`.
  ExactDecimal Shifted(int places) const;

  ExactDecimal Rounded(int decimals, Rounding rounding) const;

  // The nearest double, a half to the even one; 0 when the number is too small. Throws StepFailed
  // when it is too large.
  double Value() const;

  // The number without its decimals. Throws StepFailed outside the 64-bit range.
  std::int64_t WholePart() const;

  // The digits before the decimal mark, "0" at least, and those behind it, without trailing zeros.
  // As many characters as the number has places: for numbers of a sane size.
  std::string WholeDigits() const;
  std::string FractionDigits() const;

  // "-1234.5": with a point, no exponent and no trailing zeros.
  std::string Text() const;

  std::strong_ordering operator<=>(const ExactDecimal& other) const;
  bool operator==(const ExactDecimal& other) const = default;

 private:
  bool negative_ = false;
  std::string digits_;  // no zeros at either end
  std::int64_t point_ = 0;
};

}  // namespace quillbox
