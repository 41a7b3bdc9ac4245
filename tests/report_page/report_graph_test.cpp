// What the bars, values and legend of a graph say of the report.
#include <gtest/gtest.h>

#include <algorithm>

#include "report_page/report_browser.h"

namespace quillbox {
namespace {

struct GraphCase {
  const char *values, *channels;
  const char* shares;  // of the bars from left to right, in thousandths of the highest
  const char* shown;   // at the bars, in the same order
  const char *title = kClicks, *period = ".", *comma = ",";
};

const GraphCase kGraphs[] = {
    {"500:1,000:250", "", "500,1000,250", "500|1,000|250"},
    {"2.000:1.500", "", "1000,750", "2.000|1.500", kClicks, ",", "."},
    {"2 000:1 500", "", "1000,750", "2 000|1 500", kClicks, ",", " "},
    {"1,234.50:617.25", "", "1000,500", "$1,234.50|$617.25", kEarnings},
    {"1,234.50:617.25", "", "1000,500", "$1.234,50|$617,25", kEarnings, ",", "."},
    {"1,234.50:617.25", "", "1000,500", "$1234.50|$617.25", kEarnings, ".", "0"},
    {",1.10:,0.55", "", "1000,500", "$1.10|$0.55", kEarnings},  // its mark became a comma
    {"10.00:12,50:0.5:0.125", "", "800,1000,40,10", "10.00%|12.50%|0.5%|0.125%", kRate},
    {"1.250:2.500", "", "500,1000", "$1.250|$2.500", kEarnings},
    {"0:7", "", "0,1000", "0|7"},
    {"-3:7", "", "0,1000", "-3|7"},
    {"4::n/a:8", "", "500,1000", "4|8"},
    {"1.10;0.40:2.00;0.05", "Red^Blue", "550,200,1000,25", "$1.10|$0.40|$2.00|$0.05", kEarnings},
    {"1;;2:4;3;", "A^B^C", "250,500,1000,750", "1|2|4|3"},
};

TEST(ReportGraph, ShowsBarsInProportionAndValuesInTheRegionsNotation) {
  ReportBrowser browser(900, 500);
  for (const GraphCase& row : kGraphs) {
    SCOPED_TRACE(std::string(row.values) + " as " + row.shown);
    const std::string values = row.values;
    const auto days = static_cast<int>(std::ranges::count(values, ':')) + 1;
    browser.Show({DayLabels(days), values, row.channels}, row.title, row.period, row.comma);
    EXPECT_EQ(browser.Ask("shares()"), row.shares);
    EXPECT_EQ(browser.Ask("all('value').sort((a, b) => middleOf(a) - middleOf(b))"
                          ".map((one) => one.textContent).join('|')"),
              row.shown);
  }
}

// Where the report's first values or labels are empty, their separators are missing too.
TEST(ReportGraph, ListsOfDifferentLengthsBelongTogetherByTheirEnds) {
  ReportBrowser browser(900, 500);
  browser.Show({DayLabels(3), "5:6", {}});
  EXPECT_EQ(browser.Ask("tips().map((tip) => tip.split('\\n').pop())"), "no value,5,6");
  browser.Show({"Tuesday<BR>1/2/07", "4:5", {}});
  EXPECT_EQ(browser.Ask("tips().join('|')"), "4|Tuesday\n1/2/07\n5");
}

TEST(ReportGraph, LegendNamesTheChannelsInTheColoursOfTheirBars) {
  ReportBrowser browser(1600, 900);
  browser.Show({DayLabels(3), ManyValues(3, 10), ManyChannels(10)});
  EXPECT_EQ(browser.Ask("texts('legend').join('^')"), ManyChannels(10));
  const std::string fills = browser.Ask("all('swatch').map((one) => one.getAttribute('fill'))");
  EXPECT_EQ(browser.Ask("all('bars').map((one) => one.getAttribute('fill'))"), fills);
  EXPECT_EQ(browser.Ask("new Set(all('swatch').map((one) => one.getAttribute('fill'))).size"),
            "10");
  EXPECT_EQ(browser.Ask("shares().length"), "30");
}

// Such a group doesn't say which channels its values are of.
TEST(ReportGraph, GroupsOfAnotherSizeTakeNoChannelsColour) {
  ReportBrowser browser(900, 500);
  browser.Show({DayLabels(3), "1;2:8:4;5", "Red^Blue"});
  EXPECT_EQ(browser.Ask("bars().map((bar) => bar.series)"), "0,1,-1,0,1");
  EXPECT_EQ(browser.Ask("texts('legend')"), "Red,Blue,channel not known");
  EXPECT_EQ(browser.Ask("tips()[1]"), "Tuesday\n1/2/07\n1 of 2 channels, not told which:\n\t8");
}

TEST(ReportGraph, ScaleHasFewRoundTicksUpToTheHighestBar) {
  ReportBrowser browser(900, 500);
  browser.Show({DayLabels(2), "4912:1560", {}}, kEarnings);
  EXPECT_EQ(browser.Ask("texts('tick').join(' ')"), "$0 $1,000 $2,000 $3,000 $4,000 $5,000");
  browser.Show({DayLabels(2), "0:0", {}});
  EXPECT_EQ(browser.Ask("texts('tick')"), "0,1");
  EXPECT_EQ(browser.Ask("heights()"), "0,0");
}

TEST(ReportGraph, HostileTextsStayText) {
  ReportBrowser browser(900, 500);
  const std::string hostile =
      "<img src=x onerror=window.harm=1>^' onmouseover='window.harm=1^<svg onload=window.harm=1>";
  browser.Show(
      {"<script>window.harm=1<\\/script><BR><b>1/1/07</b>,<i>2", "1;2;<u>3:4;5;6", hostile});
  EXPECT_EQ(browser.Ask("window.harm"), "undefined");
  EXPECT_EQ(
      browser.Ask("document.body.querySelectorAll('img, b, i, u, [onmouseover], [onload]').length"),
      "0");
  EXPECT_EQ(browser.Ask("document.scripts.length"), "3");
  EXPECT_EQ(browser.Ask("texts('label').join('|')"),
            "<script>window.harm=1</script>|<b>1/1/07</b>|<i>2");
  EXPECT_EQ(browser.Ask("tips()[0].includes(\"' onmouseover='window.harm=1\\t2\")"), "true");
  browser.Ask("point(all('tip')[0], 'mouseover', 300, 200)");
  EXPECT_EQ(
      browser.Ask("document.querySelector('.nice-title').querySelectorAll('img, svg').length"),
      "0");
  EXPECT_EQ(browser.Ask("window.harm"), "undefined");
}

TEST(ReportGraph, MasqueradingSeparatorsDontStopIt) {
  ReportBrowser browser(900, 500);
  browser.Show({DayLabels(2), "1:" + std::string(150'000, ';'), {}});
  EXPECT_EQ(browser.Ask("all('strip').length"), "1");
  browser.Show({std::string(150'000, ','), std::string(150'000, ':'), std::string(150, '^')});
  EXPECT_EQ(browser.Ask("all('strip').length"), "1");
}

}  // namespace
}  // namespace quillbox
