#include "tooltip/tooltip_placement.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

TEST(TooltipPlacement, StandsBesideTheTaskbar) {
  struct Case {
    const char* Edge;
    PixelRect Taskbar;
    PixelSize Screen, Window;
    std::optional<PixelPoint> Place;
  };
  const Case kCases[] = {
      {"bottom", {0, 738, 1024, 768}, {1024, 768}, {144, 48}, PixelPoint{870, 690}},
      {"bottom, wider than the screen",
       {0, 738, 1100, 768},
       {1024, 768},
       {144, 48},
       PixelPoint{946, 690}},
      {"top", {0, 0, 1024, 30}, {1024, 768}, {144, 48}, PixelPoint{870, 30}},
      {"left", {0, 0, 60, 768}, {1024, 768}, {144, 48}, PixelPoint{60, 710}},
      {"right", {964, 0, 1024, 768}, {1024, 768}, {144, 48}, PixelPoint{820, 720}},
      {"none", {0, 0, 0, 0}, {1024, 768}, {144, 48}, PixelPoint{0, 710}},
      {"no edge", {0, 100, 500, 200}, {1024, 768}, {144, 48}, std::nullopt},
      {"half to the even pixel",
       {0, 738, 1024, 768},
       {1024, 768},
       {143.5, 47.5},
       PixelPoint{870, 690}},
      {"half to the even pixel, the other way",
       {0, 739, 1024, 768},
       {1024, 768},
       {144.5, 47.5},
       PixelPoint{870, 692}},
  };
  for (const Case& c : kCases) {
    const std::optional<PixelPoint> place = PlaceTooltip(c.Taskbar, c.Screen, c.Window);
    ASSERT_EQ(place.has_value(), c.Place.has_value()) << c.Edge;
    if (!place) continue;
    EXPECT_EQ(place->X, c.Place->X) << c.Edge;
    EXPECT_EQ(place->Y, c.Place->Y) << c.Edge;
  }
}

}  // namespace
}  // namespace quillbox
