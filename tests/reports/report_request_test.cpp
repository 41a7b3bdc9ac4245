#include "reports/report_request.h"

#include <gtest/gtest.h>

#include <string>

namespace quillbox {
namespace {

struct Case {
  const char *Title, *Range, *Unit;
  const char* Address;
};

// The query's fixed pieces, so that a row shows what it is about.
#define QUERY(product, range) \
  "product=" product "&dateRange.dateRangeType=simple&dateRange.simpleDate=" range
#define PLAIN(range, product, unit) \
  "aggregate?" QUERY(product, range) "&unitPref=" unit "&outputFormat=TSV_EXCEL"
#define CHANNELS(range, unit) \
  PLAIN(range, "afc", unit) "&reportType=channel&allChannels=true&groupByPref=both"
#define REFERRALS(range) \
  "referrals?" QUERY("ref", range) "&reportType=property&groupByPref=date&outputFormat=TSV_EXCEL"

constexpr Case kCases[] = {
    {"Ad Performance - Impressions", "Last 7 Days", "Individual Ad Unit",
     PLAIN("last7days", "afc", "adunit")},
    {"Ad Performance - Clicks", "This Month", "Page", PLAIN("thismonth", "afc", "page")},
    {"Ad Channel Performance - CTR", "Last 7 Days", "Individual Ad Unit",
     CHANNELS("last7days", "adunit")},
    {"Ad Channel Performance - Earnings", "All Time", "Page", CHANNELS("alltime", "page")},
    {"Search Performance - Queries", "Last Month", "Page", PLAIN("lastmonth", "afs", "page")},
    {"Referrals - Sign-ups", "All Time", "Page", REFERRALS("alltime")},
};

TEST(ReportRequest, BecomesTheAgentsCommand) {
  const ApplicationFolder folder("/programs", "/my data", '/');
  for (const Case& c : kCases) {
    const ReportRequest request = ReportRequestOf(*FindReportTitle(c.Title), c.Range, c.Unit);
    EXPECT_EQ(ReportCommand(request, "a.b", "+|%", "service.test:8443", folder),
              std::string("Email=%61%2E%62&Passwd=%2B|%%#%https://service.test:8443"
                          "/adsense/report/") +
                  c.Address + "|/my data/Report.dat|/my data/Report.log")
        << c.Title;
  }
}

TEST(ReportTitles, SayInTheirTextWhatIsAskedFor) {
  EXPECT_EQ(ReportTitles().size(), 21U);
  for (const ReportTitle& title : ReportTitles()) {
    const auto named = [&](std::string_view word) { return title.Text.find(word) != word.npos; };
    const std::string command = ReportCommand(ReportRequestOf(title, "All Time", "Page"), "", "",
                                              "", ApplicationFolder("", "", '/'));
    const auto asks = [&](std::string_view part) { return command.find(part) != part.npos; };
    EXPECT_EQ(asks("product=afs"), named("Search")) << title.Text;
    EXPECT_EQ(asks("product=ref"), named("Referrals")) << title.Text;
    EXPECT_EQ(asks("reportType=channel"), named("Channel")) << title.Text;
    EXPECT_EQ(title.OfChannels(), named("Channel")) << title.Text;
    EXPECT_EQ(title.HasUnit(), !named("Search") && !named("Referrals")) << title.Text;
    EXPECT_EQ(FindReportTitle(title.Text), &title);
  }
  EXPECT_EQ(FindReportTitle("ad performance - clicks"), nullptr);
}

}  // namespace
}  // namespace quillbox
