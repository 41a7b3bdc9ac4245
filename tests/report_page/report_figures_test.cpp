// The figures of a report for people who don't see its bars, and titles as tips of the page's own.
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

constexpr char kTip[] = "document.querySelector('.nice-title')";

class ReportTip : public testing::Test {
 protected:
  ReportTip() { browser_.Show({DayLabels(2), "1.10;0.40:2.00;0.05", "Red^Blue"}, kEarnings); }

  void Point(const char* kind, const std::string& at) {
    browser_.Ask("point(all('tip')[0], '" + std::string(kind) + "', " + at + ")");
  }
  void Press(const std::string& key) {
    browser_.Ask(
        "document.activeElement.dispatchEvent("
        "new KeyboardEvent('keydown', {key: '" +
        key + "', bubbles: true}))");
  }
  std::string Tip(const std::string& rest = "") { return browser_.Ask(kTip + rest); }

  ReportBrowser browser_{640, 380};
};

TEST_F(ReportTip, EveryDayHasItsDateAndValuesAsTitle) {
  EXPECT_EQ(browser_.Ask("tips().join('|')"),
            "Monday\n1/1/07\nRed\t$1.10\nBlue\t$0.40|Tuesday\n1/2/07\nRed\t$2.00\nBlue\t$0.05");
}

TEST_F(ReportTip, TheTitleIsShownInPlaceOfTheEnginesOwnAndGivenBack) {
  Point("mouseover", "200, 100");
  EXPECT_EQ(Tip(".innerText.replace(/\\s+/g, ' ')"), "Monday 1/1/07 Red $1.10 Blue $0.40");
  EXPECT_EQ(browser_.Ask("all('tip')[0].hasAttribute('title')"), "false");
  EXPECT_EQ(browser_.Ask("Array.from(document.querySelectorAll('.nice-title-number'), (one) => "
                         "Math.round(boxOf(one).right)).map((edge, i, edges) => edge - edges[0])"),
            "0,0")
      << "numbers under each other end at the same edge";
  browser_.Ask("point(document.body, 'mouseover', 0, 0)");
  EXPECT_EQ(Tip(), "null");
  EXPECT_EQ(browser_.Ask("all('tip')[0].title.split('\\n')[0]"), "Monday");
}

TEST_F(ReportTip, StaysInTheWindowEverywhere) {
  const std::string name(95, 'W');
  browser_.Show({DayLabels(2), "1;2:3;4", name + "^X" + name});
  for (const char* corner : {"0, 0", "639, 0", "0, 379", "639, 379", "330, 190"}) {
    SCOPED_TRACE(corner);
    Point("mouseover", corner);
    Point("mousemove", corner);
    EXPECT_EQ(browser_.Ask(std::string("outside([") + kTip + "])"), "0");
  }
}

TEST_F(ReportTip, KeysMoveFromDayToDay) {
  browser_.Ask("all('tip')[0].focus()");
  EXPECT_EQ(Tip(".textContent.slice(0, 6)"), "Monday");
  Press("ArrowRight");
  EXPECT_EQ(Tip(".textContent.slice(0, 7)"), "Tuesday");
  Press("Escape");
  EXPECT_EQ(Tip(), "null");
}

TEST_F(ReportTip, GoesWhenThePageIsDrawnAnew) {
  Point("mouseover", "200, 100");
  browser_.Resize(800, 450);
  EXPECT_EQ(Tip(), "null");
}

}  // namespace
}  // namespace quillbox
