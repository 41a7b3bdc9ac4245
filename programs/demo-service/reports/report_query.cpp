#include "reports/report_query.h"

namespace quillbox {
namespace {

using Parameters = std::multimap<std::string, std::string>;

std::string Value(const Parameters& parameters, const std::string& key) {
  const auto found = parameters.find(key);
  return found == parameters.end() ? "" : found->second;
}

template <typename Choice>
std::optional<Choice> Choose(const std::map<std::string, Choice>& choices,
                             const std::string& text) {
  const auto found = choices.find(text);
  return found == choices.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace

std::optional<ReportQuery> ParseReportQuery(const Parameters& parameters) {
  const auto product = Choose<Product>(
      {{"afc", Product::kContent}, {"afs", Product::kSearch}, {"ref", Product::kReferrals}},
      Value(parameters, "product"));
  const auto range = Choose<DateRange>({{"last7days", DateRange::kLast7Days},
                                        {"thismonth", DateRange::kThisMonth},
                                        {"lastmonth", DateRange::kLastMonth},
                                        {"alltime", DateRange::kAllTime}},
                                       Value(parameters, "dateRange.simpleDate"));
  if (!product || !range) return std::nullopt;
  return ReportQuery{*product, *range, Value(parameters, "reportType") == "channel"};
}

}  // namespace quillbox
