// Titles as tips of the page's own.
#include <gtest/gtest.h>

#include "report_page/report_browser.h"

namespace quillbox {
namespace {

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
