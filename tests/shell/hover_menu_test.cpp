// The tooltip window and the tray menu don't get into each other's way.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulated/simulated_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

constexpr PixelPoint kIcon{1000, 750};

class HoverMenuTest : public testing::Test {
 protected:
  HoverMenuTest() {
    program_.UsedBefore();
    program_.Start();
    host_.RunFor(1s);
    host_.Effects.Clear();
  }

  bool ComesAt(PixelPoint place) {
    host_.Hover(place);
    host_.RunFor(1s);
    return host_.Tooltip.Shown().has_value();
  }

  SimulatedProgram program_;
  SimulatedHost& host_ = program_.Host;
};

TEST_F(HoverMenuTest, TheRightButtonClosesTheWindowFirst) {
  ASSERT_TRUE(ComesAt(kIcon));
  host_.TrayMenus.Add({.Item = "", .OpenFor = 5s});
  host_.RightDown();
  EXPECT_THAT(host_.Trace(),
              ElementsAre("tooltip opens", "tooltip closes", "menu opens", "menu closes"));
}

TEST_F(HoverMenuTest, TheRightButtonEndsTheWaitToo) {
  host_.Hover(kIcon);
  host_.RunFor(300ms);
  host_.TrayMenus.Add({.Item = "", .OpenFor = 5s});
  host_.RightDown();
  host_.RunFor(5s);
  EXPECT_THAT(host_.Trace(), ElementsAre("menu opens", "menu closes"));
}

TEST_F(HoverMenuTest, MovesUnderAnOpenMenuDoNothing) {
  host_.Hover(kIcon);
  host_.TrayMenus.Add({.Item = "", .OpenFor = 5s});
  host_.After(1s, [this] { host_.Hover({7, 8}); });
  host_.RightDown();
  host_.RunFor(5s);
  EXPECT_THAT(host_.Trace(), ElementsAre("menu opens", "menu closes"));
  EXPECT_EQ(program_.State().HoverX, kIcon.X);
  EXPECT_EQ(program_.State().HoverY, kIcon.Y);
  EXPECT_TRUE(ComesAt(kIcon)) << "once the menu has closed";
}

TEST_F(HoverMenuTest, AMenuThatIsNotInFrontCountsAsOpenUntilOneWas) {
  host_.TrayMenus.SetForegroundAllowed(false);
  host_.RightDown();
  EXPECT_FALSE(ComesAt(kIcon));
  host_.TrayMenus.SetForegroundAllowed(true);
  EXPECT_FALSE(ComesAt(kIcon));
  host_.RightDown();
  EXPECT_TRUE(ComesAt(kIcon));
}

TEST_F(HoverMenuTest, TheMarkerStandsWhileTheChosenItemIsAtWork) {
  host_.TrayMenus.Add({.Item = "QuillboxManual"});
  host_.Boxes.Add({.Part = "Help File", .OpenFor = 3s});
  host_.After(1s, [this] { host_.Hover(kIcon); });
  host_.RightDown();
  EXPECT_FALSE(host_.Tooltip.Shown());
  EXPECT_EQ(program_.State().HoverX, 0);
}

TEST_F(HoverMenuTest, ExitTakesTheWindowAlong) {
  ASSERT_TRUE(ComesAt(kIcon));
  host_.Choose("Exit");
  EXPECT_THAT(host_.Trace({"tray", "tooltip", "exit"}),
              ElementsAre("tooltip opens", "tray delete", "tooltip closes", "exit"));
}

}  // namespace
}  // namespace quillbox
