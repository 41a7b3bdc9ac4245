#include "reports/report_table.h"

#include <array>
#include <cstdio>
#include <string_view>
#include <vector>

#include "reports/day_figures.h"

namespace quillbox {
namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr std::array<std::string_view, 3> kChannels = {"Front page", "Articles", "Archive"};

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
      return {today - days(119), today};
    case DateRange::kThisMonth:
      break;
  }
  return {monthStart, today};
}

std::string DateText(sys_days day) {
  const year_month_day date(day);
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
  return text;
}

std::string Hundredths(std::int64_t number) {
  const std::string fraction = std::to_string(number % 100);
  return std::to_string(number / 100) + (fraction.size() < 2 ? ".0" : ".") + fraction;
}

std::int64_t Ratio(std::int64_t part, std::int64_t factor, std::int64_t whole) {
  return whole == 0 ? 0 : part * factor / whole;
}

std::string ProductName(Product product) {
  switch (product) {
    case Product::kSearch:
      return "search";
    case Product::kReferrals:
      return "referrals";
    case Product::kContent:
      break;
  }
  return "content";
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
  const DayFigures average{sum.Impressions / dayCount, sum.Clicks / dayCount,
                           sum.SignUps / dayCount, sum.EarningsCents / dayCount};
  return Line(query, "Totals" + channelCell, sum) + Line(query, "Averages" + channelCell, average);
}

}  // namespace

std::string ReportTable(const ReportQuery& query, std::uint64_t seed, const std::string& account,
                        const Moment& moment) {
  const Days range = DaysOf(query.Range, moment.Today);
  const std::string source = account + "/" + ProductName(query.Of);
  std::string table = Heading(query);
  DayFigures sum;
  for (sys_days day = range.First; day <= range.Last; day += days(1)) {
    const std::chrono::seconds grown = day == moment.Today ? moment.Grown : days(1);
    const auto add = [&](const std::string& name, const std::string& first) {
      const DayFigures figures = FiguresOfDay(seed, name, day, grown);
      table += Line(query, first, figures);
      sum += figures;
    };
    if (!query.ByChannel) add(source, DateText(day));
    for (const std::string_view channel : kChannels) {
      if (!query.ByChannel) break;
      add(source + "/" + std::string(channel), DateText(day) + "\t" + std::string(channel));
    }
  }
  return table + SummaryLines(query, sum, (range.Last - range.First).count() + 1);
}

}  // namespace quillbox
