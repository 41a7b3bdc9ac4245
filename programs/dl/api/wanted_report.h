// What the program asks for: the address of a legacy report, read.
#pragma once

#include <optional>
#include <string_view>

namespace quillbox {

enum class WantedProduct { kContent, kSearch, kReferrals };
enum class WantedRange { kLast7Days, kThisMonth, kLastMonth, kAllTime };
enum class CountedBy { kAdUnit, kPage };

struct WantedReport {
  WantedProduct Product = WantedProduct::kContent;
  WantedRange Range = WantedRange::kThisMonth;
  CountedBy Unit = CountedBy::kAdUnit;  // has meaning for content alone
  bool ByChannel = false;               // a line for each day and channel; never for referrals
};

// `path`: the address without scheme and host, "/adsense/report/aggregate?product=afc&..." or
// "/adsense/report/referrals?...". Nothing for another path, and without a known "product" (afc,
// afs, ref) and a known "dateRange.simpleDate". Of "unitPref" everything but "page" means ad units.
std::optional<WantedReport> ParseWantedReport(std::string_view path);

}  // namespace quillbox
