// From numbers to texts (code page), in the region's notation.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "region/regional_settings.h"

namespace quillbox {

// All work on the number's decimal form with 15 significant digits, and round a half away from zero
// where they round. What rounds to zero has no sign. They throw ConversionFailed on a number that
// isn't finite and, where they take a text, on one that ToDouble refuses.

// "1234.5": no groups, no exponent, no trailing zeros.
std::string NumberText(double number, const RegionalSettings& region);

// The same for an amount in ten-thousandths; exact.
std::string NumberTextOfCurrency(std::int64_t amount, const RegionalSettings& region);

// "1,234.50": grouped, with so many decimals.
std::string FixedNumberText(double number, int decimals, const RegionalSettings& region);

// "$1,234.50", in the region's patterns for positive and negative amounts; with the region's own
// number of decimals unless one from 0 to 99 is asked for (any other throws ConversionFailed).
std::string CurrencyText(double amount, std::optional<int> decimals,
                         const RegionalSettings& region);
std::string CurrencyText(std::string_view amount, std::optional<int> decimals,
                         const RegionalSettings& region);

// "1,235": a whole number, grouped.
std::string GroupedText(double amount, const RegionalSettings& region);
std::string GroupedText(std::string_view amount, const RegionalSettings& region);

// "1.23%" of 0.0123: one or two decimals, no groups. The form "##0.0#%".
std::string CtrText(double rate, const RegionalSettings& region);

// "$1,234.5", with a dollar sign in every region: one or two decimals. The form "$###,###,##0.0#".
std::string EcpmText(double amount, const RegionalSettings& region);

}  // namespace quillbox
