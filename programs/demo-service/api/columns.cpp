#include "api/columns.h"

#include <algorithm>
#include <iterator>

#include "reports/figure_sources.h"
#include "reports/figure_texts.h"

namespace quillbox {
namespace {

std::string MonthText(const Combination& c) {
  return DateText(c.Day).substr(0, 7);
}

constexpr std::string_view kChannelName = "CUSTOM_CHANNEL_NAME";
constexpr std::string_view kChannelId = "CUSTOM_CHANNEL_ID";

std::string ChannelId(const Combination& c) {
  const auto place = std::ranges::find(kChannels, c.Channel) - kChannels.begin();
  return "channel-" + std::to_string(place + 1);
}

const Dimension kDimensions[] = {
    {"DATE", [](const Combination& c) { return DateText(c.Day); }},
    {"MONTH", MonthText},
    {"PRODUCT_CODE",
     [](const Combination& c) { return std::string(c.Of == Product::kSearch ? "AFS" : "AFC"); }},
    {"PRODUCT_NAME",
     [](const Combination& c) {
       return std::string(c.Of == Product::kSearch ? "AdSense for Search" : "AdSense for Content");
     }},
    {kChannelName, [](const Combination& c) { return std::string(c.Channel); }},
    {kChannelId, ChannelId},
};

std::string Impressions(const DayFigures& figures) {
  return std::to_string(figures.Impressions);
}

// Four decimals.
std::string ClickRate(const DayFigures& figures) {
  const std::int64_t rate = Ratio(figures.Clicks, 10'000, figures.Impressions);
  const std::string digits = std::to_string(10'000 + rate % 10'000);
  return std::to_string(rate / 10'000) + "." + digits.substr(1);
}

std::string PerThousand(const DayFigures& figures) {
  return Hundredths(Ratio(figures.EarningsCents, 1000, figures.Impressions));
}

const Metric kMetrics[] = {
    {"PAGE_VIEWS", "METRIC_TALLY", Impressions},
    {"AD_REQUESTS", "METRIC_TALLY", Impressions},
    {"IMPRESSIONS", "METRIC_TALLY", Impressions},
    {"CLICKS", "METRIC_TALLY", [](const DayFigures& f) { return std::to_string(f.Clicks); }},
    {"PAGE_VIEWS_CTR", "METRIC_RATIO", ClickRate},
    {"AD_REQUESTS_CTR", "METRIC_RATIO", ClickRate},
    {"IMPRESSIONS_CTR", "METRIC_RATIO", ClickRate},
    {"PAGE_VIEWS_RPM", "METRIC_CURRENCY", PerThousand},
    {"AD_REQUESTS_RPM", "METRIC_CURRENCY", PerThousand},
    {"IMPRESSIONS_RPM", "METRIC_CURRENCY", PerThousand},
    {"COST_PER_CLICK", "METRIC_CURRENCY",
     [](const DayFigures& f) { return Hundredths(Ratio(f.EarningsCents, 1, f.Clicks)); }},
    {"ESTIMATED_EARNINGS", "METRIC_CURRENCY",
     [](const DayFigures& f) { return Hundredths(f.EarningsCents); }},
};

template <typename Column>
const Column* Find(const Column* begin, const Column* end, std::string_view name) {
  const Column* const found =
      std::find_if(begin, end, [&](const Column& column) { return column.Name == name; });
  return found == end ? nullptr : found;
}

}  // namespace

const Dimension* FindDimension(std::string_view name) {
  return Find(std::begin(kDimensions), std::end(kDimensions), name);
}

const Metric* FindMetric(std::string_view name) {
  return Find(std::begin(kMetrics), std::end(kMetrics), name);
}

bool ConcernsChannels(const Dimension& dimension) {
  return dimension.Name == kChannelName || dimension.Name == kChannelId;
}

}  // namespace quillbox
