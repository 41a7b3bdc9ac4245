// Where labels, values and bars stand, in every size of window.
#include <gtest/gtest.h>

#include <utility>

#include "report_page/report_browser.h"

namespace quillbox {
namespace {

// Days and channels; 1 for a plain report.
constexpr std::pair<int, int> kGraphSizes[] = {{1, 1},    {7, 1}, {31, 1}, {365, 1},
                                               {7300, 1}, {7, 3}, {31, 8}, {365, 10}};

constexpr std::pair<int, int> kSizes[] = {{640, 380}, {900, 500}, {1600, 900}};

// A label of days that share a column is that of the first of them, so that it starts the column's
// tip.
constexpr char kMisplacedLabels[] = R"js(
all('label').filter((label) => !all('tip').some((tip) =>
  Math.abs(middleOf(tip) - middleOf(label)) < 1.5 &&
  tip.title.split('\n').some((line) => line.split(' ').includes(label.textContent)))).length)js";

TEST(ReportLayout, NothingOverlapsOrLeavesTheWindow) {
  ReportBrowser browser(640, 380);
  for (const auto& [days, channels] : kGraphSizes) {
    browser.Show(
        {DayLabels(days), ManyValues(days, channels), channels > 1 ? ManyChannels(channels) : ""},
        kEarnings);
    for (const auto& [width, height] : kSizes) {
      SCOPED_TRACE(testing::Message() << days << " days, " << channels << " channels, " << width);
      browser.Resize(width, height);
      EXPECT_EQ(browser.Ask("['label', 'value', 'legend'].map((name) => overlaps(all(name)))"),
                "0,0,0");
      EXPECT_EQ(browser.Ask("outside(['label', 'value', 'legend', 'tip'].flatMap(all))"), "0");
      EXPECT_EQ(browser.Ask(kMisplacedLabels), "0");
      EXPECT_NE(browser.Ask("all('label').length"), "0");
      EXPECT_EQ(browser.Ask("document.documentElement.scrollHeight <= innerHeight && "
                            "document.documentElement.scrollWidth <= innerWidth"),
                "true");
    }
  }
}

TEST(ReportLayout, BarsOfAGroupStandAboutItsLabel) {
  ReportBrowser browser(900, 500);
  browser.Show({DayLabels(3), "1;2;3:4:5;6", "A^B^C"});
  EXPECT_EQ(browser.Ask(R"js(all('tip').map((tip) => {
    const own = bars().filter((bar) => bar.left >= boxOf(tip).left && bar.right <= boxOf(tip).right);
    return own.length + ' ' +
      (Math.abs((own[0].left + own[own.length - 1].right) / 2 - middleOf(tip)) < 1);
  }).join())js"),
            "3 true,1 true,2 true");
}

TEST(ReportLayout, ValuesStandAboveTheirBars) {
  ReportBrowser browser(900, 500);
  for (const int days : {7, 31}) {  // lying and upright
    browser.Show({DayLabels(days), ManyValues(days, 1), {}}, kEarnings);
    EXPECT_EQ(browser.Ask(R"js(all('value').filter((value, i) =>
      Math.abs(middleOf(value) - (bars()[i].left + bars()[i].right) / 2) < 3 &&
      Math.abs(boxOf(value).bottom - (bars()[i].bottom - bars()[i].height)) < 9).length)js"),
              std::to_string(days));
  }
}

TEST(ReportLayout, WithoutRoomForValuesTheHighestAloneIsShown) {
  ReportBrowser browser(640, 380);
  browser.Show({DayLabels(365), ManyValues(365, 1), {}});
  EXPECT_EQ(browser.Ask("texts('value')"), "50");
}

TEST(ReportLayout, DaysThatShareAPixelShowTheirHighestAndSaySo) {
  ReportBrowser browser(640, 380);
  browser.Show({DayLabels(7300), ManyValues(7300, 1), {}});
  EXPECT_EQ(browser.Ask("texts('legend')"), "Each bar is the highest of 13 days.");
  EXPECT_EQ(browser.Ask("Math.max(...tips().map((tip) => tip.split('\\n').pop()))"), "50");
  EXPECT_EQ(browser.Ask("bars().length === Math.ceil(7300 / 13)"), "true");
}

TEST(ReportLayout, ChannelsTooManyForTheWidthGetARowEach) {
  ReportBrowser browser(640, 380);
  browser.Show({DayLabels(365), ManyValues(365, 10), ManyChannels(10)});
  EXPECT_EQ(browser.Ask("texts('legend').slice(1).join('^')"), ManyChannels(10));
  EXPECT_EQ(browser.Ask("all('bars').map((one) => one.dataset.series)"), "0,1,2,3,4,5,6,7,8,9");
  EXPECT_EQ(browser.Ask("all('bars').filter((row, i, rows) => "
                        "i > 0 && boxOf(row).top < boxOf(rows[i - 1]).bottom - 1).length"),
            "0");
  EXPECT_EQ(browser.Ask("bars().length"), "3650");
  EXPECT_EQ(browser.Ask("sharesOf(heights()).slice(0, 10).map((share) => share / 20)"),
            "1,2,3,4,5,6,7,8,9,10");
}

TEST(ReportLayout, FollowsTheWindow) {
  ReportBrowser browser(640, 380);
  browser.Show({DayLabels(31), ManyValues(31, 1), {}});
  const std::string narrow = browser.Ask("texts('label').length");
  browser.Resize(1600, 900);
  EXPECT_GT(std::stoi(browser.Ask("texts('label').length")), std::stoi(narrow));
  EXPECT_EQ(browser.Ask("bars()[30].right > 1500 && bars()[0].bottom > 800"), "true");
}

}  // namespace
}  // namespace quillbox
