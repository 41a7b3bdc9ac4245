// When the tooltip window comes and goes, and what it then shows.
#include <gmock/gmock.h>

#include "simulated/used_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr PixelPoint kIcon{1000, 750};

class HoverTest : public testing::Test {
 protected:
  HoverTest() {
    program_.FetchFigures();
    program_.Set(kRefreshTooltip, kFalse);
    program_.StartQuietly();
  }

  bool Shown() const { return host_.Tooltip.Shown().has_value(); }
  bool ComesAt(PixelPoint place) {
    host_.Hover(place);
    host_.RunFor(500ms);
    return Shown();
  }
  void Leave() {
    host_.Mouse.MoveTo({300, 300});
    host_.RunFor(1s);
  }

  UsedProgram program_;
  SimulatedHost& host_ = program_.Host;
};

TEST_F(HoverTest, TheWindowComesAfterTheCursorRestedAndGoesWithIt) {
  host_.Hover(kIcon);
  host_.RunFor(399ms);
  EXPECT_FALSE(Shown());
  host_.RunFor(11ms);
  EXPECT_TRUE(Shown());
  host_.RunFor(10s);
  EXPECT_TRUE(ComesAt({1001, 750}));
  EXPECT_THAT(host_.Trace(), ElementsAre("tooltip opens")) << "shown again changes nothing";
  EXPECT_EQ(program_.State().HoverX, 1001);
  Leave();
  host_.RunFor(10s);
  EXPECT_THAT(host_.Trace(), ElementsAre("tooltip opens", "tooltip closes"));
}

TEST_F(HoverTest, ShowsTheTextOfTheMomentInWhichItCame) {
  ASSERT_TRUE(ComesAt(kIcon));
  EXPECT_THAT(host_.Tooltip.Shown()->Labels, IsEmpty());
  host_.Choose("RefreshNow");
  EXPECT_THAT(host_.Tooltip.Shown()->Labels, IsEmpty()) << "the window doesn't follow the text";
  Leave();
  ASSERT_TRUE(ComesAt(kIcon));
  ASSERT_THAT(host_.Tooltip.Shown()->Labels, SizeIs(4));
  EXPECT_EQ(host_.Tooltip.Shown()->Labels[1].Text, " 1/31/2007");
  EXPECT_TRUE(host_.Tooltip.Shown()->DescriptionFont.Bold);
  EXPECT_FALSE(host_.Tooltip.Shown()->ValueFont.Bold);
  EXPECT_EQ(host_.Tooltip.Shown()->Labels[3].Text, " 100");
}

TEST_F(HoverTest, TakesSkinAndTaskbarAsTheyAreThen) {
  host_.Choose("RefreshNow");
  ASSERT_TRUE(ComesAt(kIcon));
  EXPECT_EQ(host_.Tooltip.Shown()->Height, 300 + 192 + 25 + 192);
  EXPECT_EQ(host_.Tooltip.Shown()->BackColor, std::nullopt);
  EXPECT_TRUE(host_.Tooltip.Shown()->Place.has_value());
  host_.Files.Put("/app/skin.ini", "[Skin]\r\nBackColor=255\r\nFontSize=10\r\nDescFontSize=20\r\n");
  host_.Tooltip.Around.Taskbar = {0, 100, 40, 768};  // at no edge
  Leave();
  ASSERT_TRUE(ComesAt(kIcon));
  EXPECT_EQ(host_.Tooltip.Shown()->Height, 300 + 480 + 25 + 480);
  EXPECT_EQ(host_.Tooltip.Shown()->BackColor, 255);
  EXPECT_FALSE(host_.Tooltip.Shown()->Place.has_value());
}

// The window and the tray menu don't get into each other's way.

TEST_F(HoverTest, TheOpenMenuEndsTheWaitAndLetsNoneBegin) {
  host_.Hover(kIcon);
  host_.RunFor(300ms);
  host_.TrayMenus.Add({.Item = "", .OpenFor = 5s});
  host_.After(1s, [this] { host_.Hover({7, 8}); });
  host_.RightDown();
  host_.RunFor(5s);
  EXPECT_THAT(host_.Trace(), ElementsAre("menu opens", "menu closes"));
  EXPECT_EQ(program_.State().HoverX, kIcon.X);
  EXPECT_EQ(program_.State().HoverY, kIcon.Y);
  EXPECT_TRUE(ComesAt(kIcon)) << "once the menu has closed";
}

TEST_F(HoverTest, AMenuThatIsNotInFrontCountsAsOpenUntilOneWas) {
  host_.TrayMenus.SetForegroundAllowed(false);
  host_.RightDown();
  EXPECT_FALSE(ComesAt(kIcon));
  host_.TrayMenus.SetForegroundAllowed(true);
  EXPECT_FALSE(ComesAt(kIcon));
  host_.RightDown();
  EXPECT_TRUE(ComesAt(kIcon));
}

TEST_F(HoverTest, TheMenuCountsAsOpenWhileTheChosenItemIsAtWork) {
  host_.TrayMenus.Add({.Item = "QuillboxManual"});
  host_.Boxes.Add({.Part = "Help File", .OpenFor = 3s});
  host_.After(1s, [this] { host_.Hover(kIcon); });
  host_.RightDown();
  EXPECT_FALSE(Shown());
  EXPECT_EQ(program_.State().HoverX, 0);
}

TEST_F(HoverTest, ExitTakesTheWindowAlong) {
  ASSERT_TRUE(ComesAt(kIcon));
  host_.Choose("Exit");
  EXPECT_THAT(host_.Trace({"tray", "tooltip", "exit"}),
              ElementsAre("tooltip opens", "tray delete", "tooltip closes", "exit"));
}

}  // namespace
}  // namespace quillbox
