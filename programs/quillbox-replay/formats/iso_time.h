// Dates and times of day as requests and options write them.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

// Nothing unless the text is exactly of the form and names a date that the calendar has.

// "2007-01-31"
std::optional<std::chrono::year_month_day> ParseDate(std::string_view text);

// "09:05:00"; from 0 to 24 h, exclusive.
std::optional<std::chrono::seconds> ParseTimeOfDay(std::string_view text);

// "2007-01-31T09:05:00"
std::optional<std::chrono::local_seconds> ParseDateAndTime(std::string_view text);

// "2007-01-31"
std::string DateArgument(std::chrono::year_month_day date);

// "2007-01-31T09:05:00"
std::string DateAndTimeArgument(std::chrono::local_seconds time);

}  // namespace quillbox
