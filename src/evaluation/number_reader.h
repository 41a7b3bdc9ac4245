// The grammar of a number in a region's notation.
#pragma once

#include <cstdint>
#include <string_view>

#include "evaluation/exact_decimal.h"
#include "platform/regional_settings.h"

namespace quillbox {

struct WrittenNumber {
  ExactDecimal Number;
  std::int64_t Exponent = 0;  // as written behind the "E"; held within a trillion
};

// What conversions.h says of all the functions that take a region. Throws ConversionFailed.
WrittenNumber ReadNumber(std::string_view text, const RegionalSettings& region);

}  // namespace quillbox
