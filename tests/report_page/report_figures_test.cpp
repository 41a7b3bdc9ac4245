// The figures of a report for people who don't see its bars.
#include <gtest/gtest.h>

#include "report_page/report_browser.h"

namespace quillbox {
namespace {

constexpr char kTable[] =
    "Array.from(document.querySelectorAll('.bar-graph-figures tr'), (row) => "
    "Array.from(row.cells, (cell) => cell.textContent).join('|')).join(' / ')";

TEST(ReportFigures, AreTheSameAsThoseOfTheBars) {
  const struct Case {
    int days;
    const char *values, *channels, *title;
    const char* table;
  } kCases[] = {
      {2, "500:1,000", "", kClicks, "Day|Value / Monday 1/1/07|500 / Tuesday 1/2/07|1,000"},
      {2, ":n/a", "", kRate, "Day|Value / Monday 1/1/07| / Tuesday 1/2/07|n/a"},
      {2, "1.1;0.4:2;0.05", "Red^<b>", kEarnings,
       "Day|Red|<b> / Monday 1/1/07|$1.1|$0.4 / Tuesday 1/2/07|$2|$0.05"},
      {2, "1;2:8", "Red^Blue", kClicks,
       "Day|Red|Blue|channel not known / Monday 1/1/07|1|2| / Tuesday 1/2/07|||8"},
  };
  ReportBrowser browser(900, 500);
  for (const Case& c : kCases) {
    browser.Show({DayLabels(c.days), c.values, c.channels}, c.title);
    EXPECT_EQ(browser.Ask(kTable), c.table);
  }
}

TEST(ReportFigures, AreReadOutAndNothingElseIsInTheirWay) {
  ReportBrowser browser(900, 500);
  browser.Show({DayLabels(2), "1;2:3;4", "Red^Blue"});
  EXPECT_EQ(browser.CellsReadOut(), "Day Red Blue Monday 1/1/07 1 2 Tuesday 1/2/07 3 4 ");
}

TEST(ReportFigures, OfALargeReportAreThoseOfItsLastDays) {
  ReportBrowser browser(900, 500);
  browser.Show({DayLabels(400), ManyValues(400, 99), ManyChannels(99)});
  EXPECT_EQ(browser.Ask("document.querySelectorAll('.bar-graph-figures td').length"), "19800");
  EXPECT_EQ(browser.Ask("document.querySelector('caption').textContent"),
            "Figures of the report, the last 200 days");
}

TEST(ReportFigures, WithoutAnyTheGraphSaysSoAndKeepsItsSlots) {
  const struct Case {
    const char *values, *channels;
    int days;
  } kCases[] = {{"", "", 7}, {"::", "", 3}, {"n/a:-", "", 2}, {";:;", "Red^Blue", 2}, {"", "", 0}};
  ReportBrowser browser(640, 380);
  for (const Case& c : kCases) {
    SCOPED_TRACE(testing::Message() << c.days << " days of " << c.values);
    browser.Show({DayLabels(c.days), c.values, c.channels});
    EXPECT_EQ(browser.Ask("texts('nothing')"),
              "There is nothing to draw: this report holds no figures.");
    EXPECT_EQ(browser.Ask("outside(all('nothing')) + overlaps(all('nothing').concat(all('label'), "
                          "all('legend')))"),
              "0");
    EXPECT_EQ(browser.Ask("all('tip').length"), std::to_string(c.days));
    EXPECT_EQ(browser.Ask("document.querySelector('caption').textContent"),
              "There is nothing to draw: this report holds no figures.");
  }
  browser.Show({DayLabels(2), "0:", {}});
  EXPECT_EQ(browser.Ask("all('nothing').length"), "0") << "a zero is a figure";
}

}  // namespace
}  // namespace quillbox
