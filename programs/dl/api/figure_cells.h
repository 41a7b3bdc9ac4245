// Figures as cells of a report, in the one notation that can be read in every region.
#pragma once

#include <string>

namespace quillbox {

// "1234": no group separators, no decimals.
std::string CountCell(double count);

// "1.52%": always two decimals, so that the first character that isn't a digit is the decimal mark.
std::string PercentCell(double fraction);

// "1234.56": always two decimals, so that the decimal mark is the third character from the end; no
// other marks. A sign would be taken for a group separator, so an amount below zero is "0.00".
std::string MoneyCell(double amount);

}  // namespace quillbox
