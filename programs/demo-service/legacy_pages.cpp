#include "legacy_pages.h"

#include <random>
#include <string_view>

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

// The cookie's name in front of its value, as both headers write it.
constexpr std::string_view kCookiePrefix = "SID=";

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

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

struct Days {
  sys_days First, Last;
};

Days DaysOf(DateRange range, sys_days today) {
  const year_month_day date(today);
  const sys_days monthStart = date.year() / date.month() / 1;
  switch (range) {
    case DateRange::kLast7Days:
      return {today - days(6), today};
    case DateRange::kLastMonth: {
      const sys_days monthEnd = monthStart - days(1);
      const year_month_day last(monthEnd);
      return {last.year() / last.month() / 1, monthEnd};
    }
    case DateRange::kAllTime:
      return {today - kOldestFigures, today};
    case DateRange::kThisMonth:
      break;
  }
  return {monthStart, today};
}

std::string Heading(const ReportQuery& query) {
  const std::string what = query.Of == Product::kSearch ? "Queries" : "Impressions";
  return std::string("Date") + (query.ByChannel ? "\tChannel" : "") + "\t" + what +
         "\tClicks\tCTR" + (query.Of == Product::kReferrals ? "\tSign-ups" : "") +
         "\teCPM\tEarnings\n";
}

// `first`: the cells in front of the figures.
std::string Line(const ReportQuery& query, const std::string& first, const DayFigures& figures) {
  std::string line = first + "\t" + std::to_string(figures.Impressions) + "\t" +
                     std::to_string(figures.Clicks) + "\t" +
                     Hundredths(Ratio(figures.Clicks, 10'000, figures.Impressions)) + "%";
  if (query.Of == Product::kReferrals) line += "\t" + std::to_string(figures.SignUps);
  return line + "\t" + Hundredths(Ratio(figures.EarningsCents, 1000, figures.Impressions)) + "\t" +
         Hundredths(figures.EarningsCents) + "\n";
}

std::string SummaryLines(const ReportQuery& query, const DayFigures& sum, std::int64_t dayCount) {
  const std::string channelCell = query.ByChannel ? "\t" : "";
  return Line(query, "Totals" + channelCell, sum) +
         Line(query, "Averages" + channelCell, sum / dayCount);
}

}  // namespace

std::string ReportTable(const ReportQuery& query, std::uint64_t seed, const std::string& account,
                        const Moment& moment) {
  const Days range = DaysOf(query.Range, moment.Today);
  std::string table = Heading(query);
  DayFigures sum;
  for (sys_days day = range.First; day <= range.Last; day += days(1)) {
    const auto add = [&](std::string_view channel, const std::string& first) {
      const std::string source = SourceName(account, query.Of, channel);
      const DayFigures figures = FiguresOfDay(seed, source, day, moment.GrownOn(day));
      table += Line(query, first, figures);
      sum += figures;
    };
    if (!query.ByChannel) add("", DateText(day));
    for (const std::string_view channel : kChannels) {
      if (query.ByChannel) add(channel, DateText(day) + "\t" + std::string(channel));
    }
  }
  return table + SummaryLines(query, sum, (range.Last - range.First).count() + 1);
}

LegacyPages::LegacyPages(const ServiceOptions& options, const DemoClock& clock)
    : passwords_(options.Accounts), seed_(options.Seed), clock_(clock) {}

GoodAnswer LegacyPages::SignIn(const std::string& email, const std::string& password) {
  const auto account = passwords_.find(email);
  if (account == passwords_.end() || account->second != password) return SignInPage();
  std::random_device random;
  const std::string cookie = std::to_string(random()) + std::to_string(random());
  {
    const std::lock_guard lock(mutex_);
    emails_[cookie] = email;
  }
  return {302,
          "OK\n",
          "text/plain",
          {{"Set-Cookie", std::string(kCookiePrefix) + cookie + "; Path=/; Secure; HttpOnly"},
           {"Location", "/adsense/gaiaauth"}}};
}

std::string LegacyPages::AccountOf(const std::string& cookieHeader) const {
  const std::string_view header = cookieHeader;
  const std::size_t begin = header.find(kCookiePrefix);
  if (begin == std::string_view::npos) return "";
  std::string_view value = header.substr(begin + kCookiePrefix.size());
  value = value.substr(0, value.find(';'));
  const std::lock_guard lock(mutex_);
  const auto found = emails_.find(std::string(value));
  return found == emails_.end() ? "" : found->second;
}

GoodAnswer LegacyPages::Report(const std::multimap<std::string, std::string>& parameters,
                               const std::string& account) const {
  if (account.empty()) return SignInPage();
  const auto query = ParseReportQuery(parameters);
  if (!query) return {400, "No such report\n", "text/plain"};
  return {200, ReportTable(*query, seed_, account, clock_.Now()), "text/tab-separated-values"};
}

}  // namespace quillbox
