// Which report a request asks for.
#pragma once

#include <map>
#include <optional>
#include <string>

namespace quillbox {

enum class Product { kContent, kSearch, kReferrals };
enum class DateRange { kLast7Days, kThisMonth, kLastMonth, kAllTime };

struct ReportQuery {
  Product Of = Product::kContent;
  DateRange Range = DateRange::kThisMonth;
  bool ByChannel = false;  // a line for each day and channel
};

// Reads "product" (afc, afs, ref), "dateRange.simpleDate" and "reportType"; other keys are ignored.
// Nothing when one of the first two is missing or unknown.
std::optional<ReportQuery> ParseReportQuery(
    const std::multimap<std::string, std::string>& parameters);

}  // namespace quillbox
