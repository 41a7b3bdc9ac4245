#include "region/number_text.h"

#include <algorithm>

#include "region/conversions.h"
#include "region/exact_decimal.h"
#include "region/failure_rule.h"

namespace quillbox {
namespace {

std::string_view Sign(const ExactDecimal& number) {
  return number.Negative() ? "-" : "";
}

ExactDecimal RoundedForDisplay(double number, int decimals) {
  return ExactDecimal::OfDouble(number).Rounded(decimals, Rounding::kHalfAwayFromZero);
}

std::string Grouped(const std::string& digits, std::string_view group) {
  std::string grouped;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) grouped += group;
    grouped += digits[i];
  }
  return grouped;
}

// The number without its sign, with all its decimals and at least so many.
std::string DigitsText(const ExactDecimal& number, int leastDecimals, std::string_view group,
                       std::string_view decimal) {
  std::string text = Grouped(number.WholeDigits(), group);
  std::string fraction = number.FractionDigits();
  fraction.resize(std::max(fraction.size(), static_cast<std::size_t>(leastDecimals)), '0');
  if (!fraction.empty()) (text += decimal) += fraction;
  return text;
}

std::string PlainText(const ExactDecimal& number, const RegionalSettings& region) {
  return std::string(Sign(number)) + DigitsText(number, 0, "", region.Decimal);
}

std::string InPattern(std::string_view pattern, std::string_view symbol, std::string_view digits) {
  std::string text;
  for (const char c : pattern) {
    if (c == '$') {
      text += symbol;
    } else if (c == 'n') {
      text += digits;
    } else {
      text += c;
    }
  }
  return text;
}

}  // namespace

std::string NumberText(double number, const RegionalSettings& region) {
  return PlainText(ExactDecimal::OfDouble(number), region);
}

std::string NumberTextOfCurrency(std::int64_t amount, const RegionalSettings& region) {
  return PlainText(ExactDecimal::OfTenThousandths(amount), region);
}

std::string FixedNumberText(double number, int decimals, const RegionalSettings& region) {
  const ExactDecimal rounded = RoundedForDisplay(number, decimals);
  return std::string(Sign(rounded)) + DigitsText(rounded, decimals, region.Group, region.Decimal);
}

std::string CurrencyText(double amount, std::optional<int> decimals,
                         const RegionalSettings& region) {
  const int shown = decimals.value_or(region.CurrencyDecimals);
  if (shown < 0 || shown > 99) throw ConversionFailed{};
  const ExactDecimal rounded = RoundedForDisplay(amount, shown);
  return InPattern(rounded.Negative() ? region.NegativeCurrency : region.PositiveCurrency,
                   region.CurrencySymbol, DigitsText(rounded, shown, region.Group, region.Decimal));
}

std::string CurrencyText(std::string_view amount, std::optional<int> decimals,
                         const RegionalSettings& region) {
  return CurrencyText(ToDouble(amount, region), decimals, region);
}

std::string GroupedText(double amount, const RegionalSettings& region) {
  return FixedNumberText(amount, 0, region);
}

std::string GroupedText(std::string_view amount, const RegionalSettings& region) {
  return GroupedText(ToDouble(amount, region), region);
}

std::string CtrText(double rate, const RegionalSettings& region) {
  const ExactDecimal percent =
      ExactDecimal::OfDouble(rate).Shifted(2).Rounded(2, Rounding::kHalfAwayFromZero);
  return std::string(Sign(percent)) + DigitsText(percent, 1, "", region.Decimal) + '%';
}

std::string EcpmText(double amount, const RegionalSettings& region) {
  const ExactDecimal rounded = RoundedForDisplay(amount, 2);
  return std::string(Sign(rounded)) + '$' + DigitsText(rounded, 1, region.Group, region.Decimal);
}

}  // namespace quillbox
