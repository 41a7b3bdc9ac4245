// From texts to numbers.
#pragma once

#include <cstdint>
#include <string_view>

#include "region/exact_decimal.h"
#include "region/regional_settings.h"

namespace quillbox {

// The number at the head of the text, 0 if there is none. The point is the decimal mark in every
// region. Blanks, tabs and line feeds are skipped, an exponent is understood, any other character
// ends the number: "1,234" gives 1. Never fails; what is too large gives the largest number.
double LeadingNumber(std::string_view text);

// The others take a text (code page) that must wholly be a number in the region's notation: blanks
// (plain or no-break) around it; a sign, or parentheses for a negative number; the currency symbol;
// sign and symbol on either side, each at most once; group separators anywhere among the digits and
// ahead of them; the decimal separator; an exponent. They throw ConversionFailed on anything else
// and on an empty text.

// The nearest double. Throws ConversionFailed also when the number is too large for one.
double ToDouble(std::string_view text, const RegionalSettings& region);

// The amount in ten-thousandths, rounded half to even: "1.23" gives 12300. Exact. Throws
// ConversionFailed also outside the 64-bit range.
std::int64_t ToCurrency(std::string_view text, const RegionalSettings& region);

// Throws ConversionFailed also on an exponent beyond 9999 in either direction, unless the number is
// 0.
ExactDecimal ToDecimal(std::string_view text, const RegionalSettings& region);

// Rounded half to even to a whole number. Throws ConversionFailed also outside the 32-bit range.
std::int32_t ToLong(std::string_view text, const RegionalSettings& region);

}  // namespace quillbox
