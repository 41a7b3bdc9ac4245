// Which columns of the reporting service make the columns of a legacy report.
#pragma once

#include <string_view>

#include "api/wanted_report.h"

namespace quillbox {

inline constexpr std::string_view kDayColumn = "DATE";
inline constexpr std::string_view kChannelColumn = "CUSTOM_CHANNEL_NAME";
inline constexpr std::string_view kChannelIdColumn = "CUSTOM_CHANNEL_ID";  // two can share a name
inline constexpr std::string_view kClicksColumn = "CLICKS";
inline constexpr std::string_view kEarningsColumn = "ESTIMATED_EARNINGS";

// Names of metrics.
struct RateColumns {
  std::string_view Count;  // what clicks and earnings are related to
  std::string_view Ctr;    // clicks for each of it, a fraction
  std::string_view Rpm;    // earnings for a thousand of it
};

// For content and search; referrals have none.
RateColumns RateColumnsOf(const WantedReport& report);

}  // namespace quillbox
