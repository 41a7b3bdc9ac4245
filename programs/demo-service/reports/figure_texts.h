// Dates and numbers as both kinds of reports write them.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace quillbox {

// yyyy-mm-dd.
std::string DateText(std::chrono::sys_days day);

// `number` counts hundredths and is not negative: 105 is "1.05".
std::string Hundredths(std::int64_t number);

// part * factor / whole, rounded down; 0 without a whole.
std::int64_t Ratio(std::int64_t part, std::int64_t factor, std::int64_t whole);

}  // namespace quillbox
