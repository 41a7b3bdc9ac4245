#include "evaluation/conversions.h"

#include <limits>

#include "evaluation/failure_rule.h"
#include "evaluation/number_reader.h"

namespace quillbox {

double ToDouble(std::string_view text, const RegionalSettings& region) {
  return ReadNumber(text, region).Number.Value();
}

std::int64_t ToCurrency(std::string_view text, const RegionalSettings& region) {
  return ReadNumber(text, region).Number.Shifted(4).Rounded(0, Rounding::kHalfEven).WholePart();
}

ExactDecimal ToDecimal(std::string_view text, const RegionalSettings& region) {
  constexpr std::int64_t kLargestExponent = 9999;
  WrittenNumber written = ReadNumber(text, region);
  const bool sane = written.Exponent <= kLargestExponent && written.Exponent >= -kLargestExponent;
  if (!sane && !written.Number.Zero()) throw ConversionFailed{};
  return written.Number;
}

std::int32_t ToLong(std::string_view text, const RegionalSettings& region) {
  using Limits = std::numeric_limits<std::int32_t>;
  const std::int64_t whole =
      ReadNumber(text, region).Number.Rounded(0, Rounding::kHalfEven).WholePart();
  if (whole < Limits::min() || whole > Limits::max()) throw ConversionFailed{};
  return static_cast<std::int32_t>(whole);
}

}  // namespace quillbox
