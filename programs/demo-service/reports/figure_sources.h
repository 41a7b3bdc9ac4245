// What earns: the products and channels of an account, and the days that have figures.
#pragma once

#include <array>
#include <chrono>
#include <string>
#include <string_view>

#include "reports/report_query.h"

namespace quillbox {

inline constexpr std::array<std::string_view, 3> kChannels = {"Front page", "Articles", "Archive"};

// How far before today the oldest day with figures lies.
inline constexpr std::chrono::days kOldestFigures{119};

// The source of FiguresOfDay. `channel`: one of kChannels, or empty for the product as a whole,
// whose figures are its own and not the channels' sum.
std::string SourceName(const std::string& account, Product product, std::string_view channel);

}  // namespace quillbox
