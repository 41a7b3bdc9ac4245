// The reports of the demo service's API: the same figures as in the old ones, in today's form.
#include "report_answer.h"

#include <gmock/gmock.h>

#include <cstdio>

#include "authorization.h"
#include "figures.h"
#include "legacy_report.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using std::chrono::sys_days;

constexpr Moment kNoon{sys_days(2007y / 2 / 3), 12h};
constexpr const char* kOldCells =
    "&metrics=PAGE_VIEWS&metrics=CLICKS&metrics=PAGE_VIEWS_CTR&metrics=PAGE_VIEWS_RPM"
    "&metrics=ESTIMATED_EARNINGS";

ReportRows Rows(const std::string& query, const Moment& moment = kNoon) {
  return MakeReportRows(ParseReportRequest(QueryFields("?" + query), moment.Today), 1, "someone",
                        moment);
}

// As the old reports write a line; `ratio` is the number of the click rate's cell.
std::string OldLine(const ReportCells& cells, std::size_t ratio) {
  std::string line;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    char percent[32];
    std::snprintf(percent, sizeof percent, "%.2f%%", std::atof(cells[i].c_str()) * 100);
    line += (i == 0 ? "" : "\t") + (i == ratio ? percent : cells[i]);
  }
  return line;
}

TEST(ReportRows, AgreeWithTheOldReports) {
  struct Case {
    ReportQuery old;
    const char* query;
  };
  const Case kCases[] = {
      {{Product::kContent, DateRange::kThisMonth, false},
       "dateRange=MONTH_TO_DATE&dimensions=DATE&filters=PRODUCT_CODE==AFC"},
      {{Product::kSearch, DateRange::kLastMonth, false},
       "startDate.year=2007&startDate.month=1&startDate.day=1&endDate.year=2007&endDate.month=1"
       "&endDate.day=31&dimensions=DATE&filters=PRODUCT_NAME=@Search"},
      {{Product::kContent, DateRange::kThisMonth, true},
       "dateRange=MONTH_TO_DATE&dimensions=DATE&dimensions=CUSTOM_CHANNEL_NAME"
       "&filters=PRODUCT_CODE==AFC"},
  };
  for (const Case& c : kCases) {
    const ReportRows rows = Rows(std::string(c.query) + kOldCells);
    const std::size_t ratio = c.old.ByChannel ? 4 : 3;
    std::vector<std::string> lines;
    for (const ReportCells& row : rows.Rows) lines.push_back(OldLine(row, ratio));
    for (auto [label, cells] : {std::pair{"Totals", rows.Totals}, {"Averages", rows.Averages}}) {
      cells[0] = label;
      lines.push_back(OldLine(cells, ratio));
    }
    std::vector<std::string> old = SplitText(ReportTable(c.old, 1, "someone", kNoon), "\n");
    old.erase(old.begin());  // the heading
    old.pop_back();          // nothing behind the last line feed
    EXPECT_THAT(lines, testing::UnorderedElementsAreArray(old)) << c.query;
  }
}

TEST(ReportRows, DaysWithoutFiguresHaveNone) {
  const Moment midnight{kNoon.Today, 0s};
  EXPECT_EQ(Rows("dateRange=TODAY&dimensions=DATE&metrics=CLICKS", midnight).Matched, 0U);
  EXPECT_EQ(Rows("dateRange=YEAR_TO_DATE&dimensions=DATE&metrics=CLICKS").Matched, 34U);
  EXPECT_EQ(Rows("dateRange=LAST_7_DAYS&dimensions=MONTH&metrics=CLICKS").Matched, 2U);
  EXPECT_EQ(Rows("startDate.year=2000&startDate.month=1&startDate.day=1&endDate.year=2099"
                 "&endDate.month=1&endDate.day=1&dimensions=DATE&metrics=CLICKS")
                .Matched,
            120U);
}

TEST(ReportRows, AreOrderedAsAskedAndCutAfterwards) {
  const ReportRows rows = Rows(
      "dateRange=LAST_30_DAYS&dimensions=DATE&metrics=CLICKS&metrics=PAGE_VIEWS"
      "&orderBy=-PAGE_VIEWS&limit=3");
  ASSERT_EQ(rows.Rows.size(), 3U);
  EXPECT_EQ(rows.Matched, 30U);
  EXPECT_GE(std::stol(rows.Rows[0][2]), std::stol(rows.Rows[1][2]));
  EXPECT_GE(std::stol(rows.Rows[1][2]), std::stol(rows.Rows[2][2]));
  EXPECT_EQ(Rows("dateRange=LAST_7_DAYS&dimensions=DATE&metrics=CLICKS&orderBy=-DATE").Rows[0][0],
            "2007-02-02");
}

TEST(ReportRequest, TellsWhatIsWrong) {
  const char* const kWrong[] = {
      "dateRange=TODAY",
      "dateRange=EVER&metrics=CLICKS",
      "metrics=CLICKS",
      "dateRange=TODAY&metrics=CLICKS&dimension=DATE",
      "dateRange=TODAY&metrics=CLICKS&dimensions=HOUR",
      "dateRange=TODAY&metrics=CLACKS",
      "dateRange=TODAY&metrics=CLICKS&filters=PRODUCT_CODE<AFC",
      "dateRange=TODAY&metrics=CLICKS&orderBy=DATE",
      "dateRange=TODAY&metrics=CLICKS&limit=0",
      "dateRange=TODAY&metrics=CLICKS&currencyCode=usd",
      "dateRange=TODAY&metrics=CLICKS&reportingTimeZone=MARS",
      "startDate.year=2007&startDate.month=2&startDate.day=30&endDate.year=2007&endDate.month=3"
      "&endDate.day=1&metrics=CLICKS",
      "startDate.year=2007&startDate.month=2&startDate.day=3&endDate.year=2007&endDate.month=2"
      "&endDate.day=1&metrics=CLICKS",
  };
  for (const char* query : kWrong) EXPECT_THROW(Rows(query), BadReportRequest) << query;
}

TEST(DayFigures, NeverFallWithinADayAndGrowOverIt) {
  for (std::uint64_t seed = 0; seed < 20; ++seed) {
    DayFigures before;
    for (auto grown = 0s; grown <= 48h; grown += 97s) {
      const DayFigures now = FiguresOfDay(seed, "someone", kNoon.Today, grown);
      ASSERT_GE(now.Impressions, before.Impressions) << seed << " at " << grown.count();
      ASSERT_GE(now.Clicks, before.Clicks) << seed << " at " << grown.count();
      ASSERT_GE(now.SignUps, before.SignUps) << seed << " at " << grown.count();
      ASSERT_GE(now.EarningsCents, before.EarningsCents) << seed << " at " << grown.count();
      before = now;
    }
    EXPECT_GT(before.Clicks, 0) << seed;
    EXPECT_GT(before.EarningsCents, 0) << seed;
  }
}

}  // namespace
}  // namespace quillbox
