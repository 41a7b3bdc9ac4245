// Dates and times of day as texts (code page).
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "region/regional_settings.h"

namespace quillbox {

// Reads a date in numbers or with the month's name, full or short, in the region's language or in
// English. The region's order of day, month and year comes first, then month and day exchanged,
// then the year first. Separators are "/", "-", "." and blanks, and the comma in dates with a
// month's name; one point may close the date. Years 00 to 29 are 20xx, 30 to 99 are 19xx; a date
// without a year is in `currentYear`. Throws ConversionFailed on anything else, and on a date that
// no calendar has.
std::chrono::year_month_day ToDate(std::string_view text, const RegionalSettings& region,
                                   int currentYear);

// The calendar year, for dates that don't name theirs.
int YearOf(std::chrono::local_seconds time);

// In the region's short date form.
std::string ShortDate(std::chrono::year_month_day date, const RegionalSettings& region);

// Hours and minutes: "09:05", or "9:05 AM" in 12-hour form. `timeOfDay` is from 0 to 24 h,
// exclusive.
std::string TimeText(std::chrono::seconds timeOfDay, bool use24Hour,
                     const RegionalSettings& region);

}  // namespace quillbox
