// What the addresses of the program become at the current API.
#include "api/report_query.h"

#include <gtest/gtest.h>

#include "request/limits.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using std::chrono::sys_days;
using std::chrono::year;

constexpr sys_days kToday = year(2026) / 3 / 9;
constexpr sys_days kCreated = year(2019) / 7 / 1;

// What reports of one product have in common, behind the range.
std::string Columns(const std::string& count, const std::string& product,
                    const std::string& channel = "") {
  return "&reportingTimeZone=ACCOUNT_TIME_ZONE&dimensions=DATE" + channel + "&metrics=" + count +
         "&metrics=CLICKS&metrics=" + count + "_CTR&metrics=" + count +
         "_RPM&metrics=ESTIMATED_EARNINGS&filters=PRODUCT_CODE%3D%3D" + product + "&orderBy=DATE";
}

TEST(ApiQuery, IsMadeOfEveryAddressOfTheProgram) {
  const std::string kAggregate = "/adsense/report/aggregate?product=";
  const std::string kRange = "&dateRange.dateRangeType=simple&dateRange.simpleDate=";
  const std::string kByDate = "&reportType=property&groupByPref=date&outputFormat=TSV_EXCEL";
  const std::string kAllChannels =
      "&outputFormat=TSV_EXCEL&reportType=channel&allChannels=true&groupByPref=both";
  const std::string kChannel = "&dimensions=CUSTOM_CHANNEL_NAME&dimensions=CUSTOM_CHANNEL_ID";
  const std::string kLastMonth =
      "dateRange=CUSTOM&startDate.year=2026&startDate.month=2&startDate.day=1"
      "&endDate.year=2026&endDate.month=2&endDate.day=28";
  const std::string kAllTime =
      "dateRange=CUSTOM&startDate.year=2019&startDate.month=6&startDate.day=30"
      "&endDate.year=2026&endDate.month=3&endDate.day=9";
  const std::pair<std::string, std::string> kCases[] = {
      {kAggregate + "afc" + kRange + "thismonth" + kByDate + "&unitPref=page",
       "dateRange=MONTH_TO_DATE" + Columns("PAGE_VIEWS", "AFC")},
      {kAggregate + "afc" + kRange + "thismonth" + kByDate + "&unitPref=adunit",
       "dateRange=MONTH_TO_DATE" + Columns("IMPRESSIONS", "AFC")},
      {kAggregate + "afs" + kRange + "thismonth" + kByDate,
       "dateRange=MONTH_TO_DATE" + Columns("AD_REQUESTS", "AFS")},
      {"/adsense/report/referrals?product=ref" + kRange + "thismonth" + kByDate,
       "dateRange=MONTH_TO_DATE&reportingTimeZone=ACCOUNT_TIME_ZONE&metrics=CLICKS"},
      {kAggregate + "afc" + kRange + "last7days&unitPref=page&outputFormat=TSV_EXCEL",
       "dateRange=LAST_7_DAYS" + Columns("PAGE_VIEWS", "AFC")},
      {kAggregate + "afc" + kRange + "lastmonth&unitPref=adunit" + kAllChannels,
       kLastMonth + Columns("IMPRESSIONS", "AFC", kChannel)},
      {kAggregate + "afs" + kRange + "alltime&unitPref=page&outputFormat=TSV_EXCEL",
       kAllTime + Columns("AD_REQUESTS", "AFS")},
  };
  for (const auto& [address, query] : kCases) {
    const auto report = ParseWantedReport(address);
    ASSERT_TRUE(report) << address;
    EXPECT_EQ(ReportQuery(*report, DaysOf(report->Range, kToday, kCreated)), query) << address;
  }
}

TEST(ApiQuery, IsNotMadeOfOtherAddresses) {
  for (const char* const address :
       {"", "/", "/adsense/report/aggregate", "/adsense/report/aggregate?",
        "/adsense/report/aggregate?product=afc",
        "/adsense/report/aggregate?product=afx&dateRange.simpleDate=thismonth",
        "/adsense/report/aggregate?product=afc&dateRange.simpleDate=tomorrow",
        "/adsense/report/aggregate?xproduct=afc&dateRange.simpleDate=thismonth",
        "/versionqb.txt?product=afc&dateRange.simpleDate=thismonth"}) {
    EXPECT_FALSE(ParseWantedReport(address)) << address;
  }
}

TEST(ApiDays, OfRangesWithoutANameFollowToday) {
  struct Case {
    WantedRange range;
    sys_days today, first, last;
  };
  const Case kCases[] = {
      {WantedRange::kLastMonth, year(2026) / 1 / 31, year(2025) / 12 / 1, year(2025) / 12 / 31},
      {WantedRange::kLastMonth, year(2024) / 3 / 1, year(2024) / 2 / 1, year(2024) / 2 / 29},
      {WantedRange::kAllTime, year(2026) / 3 / 9, year(2019) / 6 / 30, year(2026) / 3 / 9},
      {WantedRange::kAllTime, year(2018) / 1 / 1, year(2018) / 1 / 1, year(2018) / 1 / 1}};
  for (const Case& c : kCases) {
    const DayRange days = DaysOf(c.range, c.today, kCreated);
    EXPECT_EQ(DayText(days.First) + " " + DayText(days.Last),
              DayText(c.first) + " " + DayText(c.last));
  }
  EXPECT_EQ(DayText(DaysOf(WantedRange::kAllTime, kToday, std::nullopt).First), "2003-01-01");
}

TEST(ApiPatience, GrowsEndsAndGivesTheServerItsTime) {
  struct Case {
    int repeat;
    std::chrono::milliseconds left;
    std::chrono::seconds wanted;
    std::optional<std::chrono::milliseconds> pause;
  };
  const Case kCases[] = {{1, 90s, 0s, 1s},
                         {3, 90s, 0s, std::nullopt},
                         {1, 90s, 20s, 20s},
                         {2, 90s, 1s, 3s},
                         {1, 20s, 20s, std::nullopt},
                         {1, 1s, 0s, std::nullopt},
                         {1, 90s, std::chrono::seconds::max(), std::nullopt},
                         {1, 90s, std::chrono::seconds::min(), 1s}};
  for (const Case& c : kCases) {
    EXPECT_EQ(PauseBefore(c.repeat, 100s, c.left, c.wanted), c.pause)
        << c.repeat << " " << c.left.count() << " " << c.wanted.count();
  }
}

}  // namespace
}  // namespace quillbox
