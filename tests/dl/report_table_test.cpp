// The reports of the demo service have the service's form, and their figures grow.
#include "reports/report_table.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "reports/day_figures.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using std::chrono::sys_days;
using testing::Each;
using testing::SizeIs;

constexpr Moment kNoon{sys_days(2007y / 2 / 3), 12h};

using Cells = std::vector<std::string>;

std::vector<Cells> Lines(const ReportQuery& query, const Moment& moment = kNoon) {
  Cells lines = SplitText(ReportTable(query, 1, "someone", moment), "\n");
  EXPECT_EQ(lines.back(), "") << "the last line ends in a line feed too";
  lines.pop_back();
  std::vector<Cells> cells;
  for (const std::string& line : lines) cells.push_back(SplitText(line, "\t"));
  return cells;
}

TEST(ReportTable, HasALineADayBetweenHeadingAndTwoSummaryLines) {
  struct Case {
    ReportQuery query;
    std::size_t lines, cells;
    const char *first, *last;  // dates
  };
  const Case kCases[] = {
      {{Product::kContent, DateRange::kThisMonth, false}, 3, 6, "2007-02-01", "2007-02-03"},
      {{Product::kSearch, DateRange::kLast7Days, false}, 7, 6, "2007-01-28", "2007-02-03"},
      {{Product::kReferrals, DateRange::kLastMonth, false}, 31, 7, "2007-01-01", "2007-01-31"},
      {{Product::kContent, DateRange::kAllTime, false}, 120, 6, "2006-10-07", "2007-02-03"},
      {{Product::kContent, DateRange::kThisMonth, true}, 9, 7, "2007-02-01", "2007-02-03"},
  };
  for (const Case& c : kCases) {
    const auto lines = Lines(c.query);
    ASSERT_THAT(lines, SizeIs(c.lines + 3)) << c.first;
    EXPECT_THAT(lines, Each(SizeIs(c.cells))) << c.first;
    EXPECT_EQ(lines[1][0], c.first);
    EXPECT_EQ(lines[c.lines][0], c.last);
  }
}

TEST(ReportTable, TheTotalsAreTheSumOfTheDaysAndADayBeginsWithoutFigures) {
  const auto lines = Lines({});
  long sum = 0;
  for (std::size_t i = 1; i + 2 < lines.size(); ++i) sum += std::stol(lines[i][1]);
  EXPECT_GT(sum, 0);
  EXPECT_EQ(std::stol(lines[lines.size() - 2][1]), sum);
  EXPECT_THAT(Lines({}, {sys_days(2007y / 2 / 1), 0s})[1],
              testing::ElementsAre("2007-02-01", "0", "0", "0.00%", "0.00", "0.00"));
}

TEST(DayFigures, NeverFallWithinADayAndGrowOverIt) {
  const sys_days day = 2007y / 2 / 3;
  for (std::uint64_t seed = 0; seed < 20; ++seed) {
    DayFigures before;
    for (auto grown = 0s; grown <= 48h; grown += 97s) {
      const DayFigures now = FiguresOfDay(seed, "someone", day, grown);
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

TEST(DayFigures, DependOnTheirArgumentsAlone) {
  const sys_days day = 2007y / 2 / 3;
  EXPECT_EQ(FiguresOfDay(1, "a", day, 1h), FiguresOfDay(1, "a", day, 1h));
  EXPECT_NE(FiguresOfDay(1, "a", day, 1h), FiguresOfDay(2, "a", day, 1h));
  EXPECT_NE(FiguresOfDay(1, "a", day, 1h), FiguresOfDay(1, "b", day, 1h));
}

}  // namespace
}  // namespace quillbox
