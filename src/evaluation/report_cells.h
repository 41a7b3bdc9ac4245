// Single cells of a report: reading them by position, without knowing the region that wrote them.
#pragma once

#include <string>
#include <string_view>

#include "platform/regional_settings.h"

namespace quillbox {

// Puts the region's decimal separator in the place of the first character that isn't a digit:
// "0.97%" stays or becomes "0,97%", "0%" becomes "0." or "0,".
void FixPercentCell(std::string& cell, const RegionalSettings& region);

// If the third character from the end isn't a digit, it becomes the region's decimal separator, and
// every character before it that isn't a digit the group separator, a leading "$" or "-" too. A
// cell of fewer than three characters stays as it is.
void FixMoneyCell(std::string& cell, const RegionalSettings& region);

// The same with "." and "," in every region, and without percent signs. Throws ConversionFailed on
// fewer than three characters.
std::string NormalizeReportCell(std::string_view cell);

// The region's decimal mark and its group mark, each one character, as seen in 1000.5 written with
// two decimals: a region without groups gives "0" for the comma.
std::string PeriodCharacter(const RegionalSettings& region);
std::string CommaCharacter(const RegionalSettings& region);

// The plain blanks, digits, commas and points of the text, without blanks at either end.
std::string KeepNumberChars(std::string_view text);

}  // namespace quillbox
