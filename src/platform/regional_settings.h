// How the person's region writes numbers, amounts, dates and times.
#pragma once

#include <array>
#include <string>

namespace quillbox {

// Texts are in the code page. The defaults are those of en-US.
struct RegionalSettings {
  std::string Decimal = ".";
  std::string Group = ",";  // may be empty
  std::string CurrencySymbol = "$";
  int CurrencyDecimals = 2;
  // "$" is the place of the symbol, "n" that of the digits, all else stands for itself.
  std::string PositiveCurrency = "$n";
  std::string NegativeCurrency = "($n)";
  // d, dd, M, MM, yy, yyyy; all else stands for itself.
  std::string ShortDate = "M/d/yyyy";
  std::string TimeSeparator = ":";
  std::string Am = "AM";
  std::string Pm = "PM";
  std::array<std::string, 7> Weekdays = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                         "Thursday", "Friday", "Saturday"};
  std::array<std::string, 12> Months = {"January",   "February", "March",    "April",
                                        "May",       "June",     "July",     "August",
                                        "September", "October",  "November", "December"};
  std::array<std::string, 12> MonthsShort = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                             "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
};

}  // namespace quillbox
