#include "api/wanted_report.h"

#include <utility>

namespace quillbox {
namespace {

constexpr std::string_view kAggregate = "/adsense/report/aggregate";
constexpr std::string_view kReferrals = "/adsense/report/referrals";

template <typename Choice>
using Choices = std::initializer_list<std::pair<std::string_view, Choice>>;

template <typename Choice>
std::optional<Choice> Choose(std::string_view text, Choices<Choice> choices) {
  for (const auto& [name, choice] : choices) {
    if (text == name) return choice;
  }
  return std::nullopt;
}

// The value of the first "key=value", empty without one.
std::string_view Value(std::string_view query, std::string_view key) {
  while (!query.empty()) {
    const std::string_view pair = query.substr(0, query.find('&'));
    query.remove_prefix(std::min(pair.size() + 1, query.size()));
    if (pair.starts_with(key) && pair.substr(key.size()).starts_with('=')) {
      return pair.substr(key.size() + 1);
    }
  }
  return {};
}

}  // namespace

std::optional<WantedReport> ParseWantedReport(std::string_view path) {
  const std::size_t cut = path.find('?');
  if (cut == std::string_view::npos) return std::nullopt;
  if (path.substr(0, cut) != kAggregate && path.substr(0, cut) != kReferrals) return std::nullopt;
  const std::string_view query = path.substr(cut + 1);
  const auto product =
      Choose<WantedProduct>(Value(query, "product"), {{"afc", WantedProduct::kContent},
                                                      {"afs", WantedProduct::kSearch},
                                                      {"ref", WantedProduct::kReferrals}});
  const auto range = Choose<WantedRange>(Value(query, "dateRange.simpleDate"),
                                         {{"last7days", WantedRange::kLast7Days},
                                          {"thismonth", WantedRange::kThisMonth},
                                          {"lastmonth", WantedRange::kLastMonth},
                                          {"alltime", WantedRange::kAllTime}});
  if (!product || !range) return std::nullopt;
  return WantedReport{
      .Product = *product,
      .Range = *range,
      .Unit = Value(query, "unitPref") == "page" ? CountedBy::kPage : CountedBy::kAdUnit,
      .ByChannel =
          *product != WantedProduct::kReferrals && Value(query, "reportType") == "channel"};
}

}  // namespace quillbox
