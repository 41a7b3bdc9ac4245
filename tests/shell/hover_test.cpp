// When the tooltip window comes and goes, and what it then shows.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulated/sample_report.h"
#include "simulated/simulated_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr PixelPoint kIcon{1000, 750};
constexpr PixelPoint kElsewhere{300, 300};

class HoverTest : public testing::Test {
 protected:
  HoverTest() {
    program_.UsedBefore();
    program_.AddAccount("one", "ann", "x");
    program_.Set(kPrimaryAccount, "one");
    program_.Set(kTooltipValues, "AB");
    program_.Set(kDataToDownload, kDownloadContent);
    program_.Host.Agents.Always(Answers("0"));
    program_.Start();
    host_.RunFor(1s);
    host_.Effects.Clear();
  }

  void Rest(PixelPoint place = kIcon) {
    host_.Hover(place);
    host_.RunFor(500ms);
  }
  bool Shown() const { return host_.Tooltip.Shown().has_value(); }

  SimulatedProgram program_;
  SimulatedHost& host_ = program_.Host;
};

TEST_F(HoverTest, TheWindowComesAfterTheCursorRestedAndGoesWithIt) {
  host_.Hover(kIcon);
  host_.RunFor(399ms);
  EXPECT_FALSE(Shown());
  host_.RunFor(11ms);
  EXPECT_TRUE(Shown());
  host_.RunFor(10s);
  EXPECT_THAT(host_.Trace(), ElementsAre("tooltip opens")) << "shown again changes nothing";
  host_.Mouse.MoveTo(kElsewhere);
  host_.RunFor(1ms);
  host_.RunFor(10s);
  EXPECT_THAT(host_.Trace(), ElementsAre("tooltip opens", "tooltip closes"));
}

TEST_F(HoverTest, ACursorThatPassesByShowsNothing) {
  host_.Hover(kIcon);
  host_.RunFor(390ms);
  host_.Mouse.MoveTo(kElsewhere);
  host_.RunFor(10s);
  EXPECT_THAT(host_.Trace(), IsEmpty());
}

TEST_F(HoverTest, MovingOnTheIconKeepsTheWindow) {
  Rest();
  Rest({1001, 750});
  EXPECT_THAT(host_.Trace(), ElementsAre("tooltip opens"));
  EXPECT_EQ(program_.State().HoverX, 1001);
}

TEST_F(HoverTest, ComesInTheMiddleOfADownload) {
  AgentBehaviour slow = Answers("0");
  slow.LogAfter = 5s;
  host_.Agents.Always(slow);
  host_.After(1s, [this] { host_.Hover(kIcon); });
  host_.After(2s, [this] { EXPECT_TRUE(Shown()); });
  host_.Choose("RefreshNow");
  EXPECT_TRUE(Shown());
}

TEST_F(HoverTest, ShowsTheTextOfTheMomentInWhichItCame) {
  Rest();
  EXPECT_THAT(host_.Tooltip.Shown()->Labels, IsEmpty());
  host_.Choose("RefreshNow");
  EXPECT_THAT(host_.Tooltip.Shown()->Labels, IsEmpty()) << "the window doesn't follow the text";
  host_.Mouse.MoveTo(kElsewhere);
  host_.RunFor(1s);
  Rest();
  ASSERT_THAT(host_.Tooltip.Shown()->Labels, SizeIs(4));
  EXPECT_EQ(host_.Tooltip.Shown()->Labels[1].Text, " 1/31/2007");
  EXPECT_EQ(host_.Tooltip.Shown()->Labels[3].Text, " 100");
}

TEST_F(HoverTest, StandsBesideTheTaskbarAsItIsThen) {
  struct Case {
    const char* edge;
    PixelRect taskbar;
    std::optional<PixelPoint> place;
  };
  // The empty window has 24 by 20 pixels.
  const Case kCases[] = {{"bottom", {0, 738, 1024, 768}, PixelPoint{990, 718}},
                         {"right", {984, 0, 1024, 768}, PixelPoint{960, 748}},
                         {"top", {0, 0, 1024, 30}, PixelPoint{990, 30}},
                         {"left", {0, 0, 40, 768}, PixelPoint{40, 738}},
                         {"none", {0, 0, 0, 0}, PixelPoint{0, 738}},
                         {"elsewhere", {0, 100, 40, 768}, std::nullopt}};
  for (const Case& c : kCases) {
    host_.Tooltip.Around.Taskbar = c.taskbar;
    Rest();
    ASSERT_TRUE(Shown()) << c.edge;
    EXPECT_EQ(host_.Tooltip.Shown()->Width, 360) << c.edge;
    EXPECT_EQ(host_.Tooltip.Shown()->Height, 300) << c.edge;
    EXPECT_TRUE(host_.Tooltip.Shown()->Place == c.place) << c.edge;
    host_.Mouse.MoveTo(kElsewhere);
    host_.RunFor(1s);
  }
}

TEST_F(HoverTest, TakesTheSkinAsItIsThen) {
  host_.Choose("RefreshNow");
  Rest();
  EXPECT_EQ(host_.Tooltip.Shown()->Height, 300 + 192 + 25 + 192);
  EXPECT_EQ(host_.Tooltip.Shown()->BackColor, std::nullopt);
  host_.Files.Put(
      "/app/skin.ini",
      "[Skin]\r\nBackColor=255\r\nFontSize=10\r\nDescFontSize=20\r\nFontFace=Arial\r\n");
  host_.Mouse.MoveTo(kElsewhere);
  host_.RunFor(1s);
  Rest();
  EXPECT_EQ(host_.Tooltip.Shown()->Height, 300 + 480 + 25 + 480);
  EXPECT_EQ(host_.Tooltip.Shown()->BackColor, 255);
  EXPECT_EQ(host_.Tooltip.Shown()->DescriptionFont.Face, "Arial");
  EXPECT_TRUE(host_.Tooltip.Shown()->DescriptionFont.Bold);
}

}  // namespace
}  // namespace quillbox
