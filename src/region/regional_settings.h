// How the person's region writes numbers, amounts, dates and times.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

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

// The built-in settings of a region, by name: en-US, en-GB, de-DE, fr-FR, de-CH, sv-SE, pt-BR.
// Nothing for any other name. The value is built anew at each call: keep it.
std::optional<RegionalSettings> BuiltInRegion(std::string_view name);

}  // namespace quillbox
