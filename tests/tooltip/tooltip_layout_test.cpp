// What stands where in the window, where the window stands, and its skin.
#include <gtest/gtest.h>

#include "simulated/simulated_files.h"
#include "tooltip/skin.h"
#include "tooltip/tooltip_picture.h"

namespace quillbox {
namespace {

// A font in which every character is as wide as every other.
TooltipMeasure FixedMeasure(double descriptionWidth, double valueWidth, double height) {
  return {[=](std::string_view text) {
            return TextSize{descriptionWidth * static_cast<double>(text.size()), height};
          },
          [=](std::string_view text) {
            return TextSize{valueWidth * static_cast<double>(text.size()), height};
          }};
}

std::vector<std::string> RowTexts(const TooltipLayout& layout) {
  std::vector<std::string> texts;
  for (const PlacedRow& row : layout.Rows) {
    texts.push_back(std::to_string(row.Row.Line) + row.Row.Description + row.Row.Value);
  }
  return texts;
}

TEST(TooltipLayout, LinesBecomeRowsAtTheirFirstColonBlank) {
  struct Case {
    const char* Text;
    std::vector<std::string> Rows;
  };
  const Case kCases[] = {
      {"", {}},
      {"Quillbox", {}},
      {"Clicks: 3", {}},  // a single line has no row
      {"Clicks: 3\r\nCTR: 1%", {"0Clicks: 3", "1CTR: 1%"}},
      {"Value:12\r\nDownloaded: 12:05: PM", {"1Downloaded: 12:05: PM"}},
      {"plain\r\nA: b\r\nplain", {"1A: b"}},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(RowTexts(LayOutTooltip(c.Text, FixedMeasure(90, 80, 195))), c.Rows) << c.Text;
  }
}

TEST(TooltipLayout, WidestRowAndAllHeightsMakeTheWindow) {
  struct Case {
    const char* Text;
    double RowHeight;
    double Width, Height;
  };
  const Case kCases[] = {
      {"Earnings: $1234.5\r\nCTR.: 1%", 195, 360 + 900 + 800, 300 + 195 + 25 + 195},
      // A row in front of a line without one keeps its gap.
      {"A: b\r\nplain", 195, 360 + 400, 300 + 195 + 25},
      {"plain\r\nA: b", 195, 360 + 400, 300 + 195},
      // 0 + 24.5 rounds to 24, and 24 + 25 + 24.5 to 74.
      {"plain\r\nA: b", 24.5, 360 + 400, 300 + 24},
      {"A: b\r\nC: d", 24.5, 360 + 400, 300 + 74},
      {"Quillbox", 195, 360, 300},
  };
  for (const Case& c : kCases) {
    const TooltipLayout layout = LayOutTooltip(c.Text, FixedMeasure(100, 100, c.RowHeight));
    EXPECT_EQ(layout.Width, c.Width) << c.Text;
    EXPECT_EQ(layout.Height, c.Height) << c.Text;
  }
}

TEST(TooltipPlacement, StandsBesideTheTaskbar) {
  struct Case {
    const char* Edge;
    PixelRect Taskbar;
    PixelSize Window;
    std::optional<PixelPoint> Place;
  };
  const Case kCases[] = {
      {"bottom", {0, 738, 1024, 768}, {144, 48}, PixelPoint{870, 690}},
      {"bottom, wider than the screen", {0, 738, 1100, 768}, {144, 48}, PixelPoint{946, 690}},
      {"top", {0, 0, 1024, 30}, {144, 48}, PixelPoint{870, 30}},
      {"left", {0, 0, 60, 768}, {144, 48}, PixelPoint{60, 710}},
      {"right", {964, 0, 1024, 768}, {144, 48}, PixelPoint{820, 720}},
      {"none", {0, 0, 0, 0}, {144, 48}, PixelPoint{0, 710}},
      {"no edge", {0, 100, 500, 200}, {144, 48}, std::nullopt},
      {"half to the even pixel", {0, 738, 1024, 768}, {143.5, 47.5}, PixelPoint{870, 690}},
      {"the other way", {0, 739, 1024, 768}, {144.5, 47.5}, PixelPoint{870, 692}},
  };
  for (const Case& c : kCases) {
    const std::optional<PixelPoint> place = PlaceTooltip(c.Taskbar, {1024, 768}, c.Window);
    ASSERT_EQ(place.has_value(), c.Place.has_value()) << c.Edge;
    if (!place) continue;
    EXPECT_EQ(place->X, c.Place->X) << c.Edge;
    EXPECT_EQ(place->Y, c.Place->Y) << c.Edge;
  }
}

TEST(SkinColor, ThreeWholeNumbersOrBlack) {
  struct Case {
    const char* Text;
    std::optional<SkinColorValue> Color;
  };
  const Case kCases[] = {
      {"", std::nullopt},    {"NO_SUCH_KEY", std::nullopt},
      {"0,26,53", 0x351A00}, {" 255 , 0,1 ", 0x0100FF},
      {"300,0,0", 255},      {"12,34", 0},
      {"1,2,3,4", 0},        {"1,x,3", 0},
      {"1,2,40000", 0},      {"-1,2,3", 0},
      {"+5,0,0", 5},         {"+-5,0,0", 0},
  };
  for (const Case& c : kCases) EXPECT_EQ(SkinColor(c.Text), c.Color) << c.Text;
}

TEST(ReadSkin, WhatTheFileLeavesOutKeepsTheDefaultLook) {
  SimulatedFiles files;
  const Skin plain = ReadSkin(files, "/app/skin.ini");
  EXPECT_EQ(plain.BackColor, "");
  EXPECT_EQ(plain.FontFace, "Verdana");
  EXPECT_EQ(plain.FontSize, "8");
  EXPECT_EQ(plain.FontColor, 0x351A00);
  EXPECT_EQ(plain.DescFontColor, std::nullopt);

  files.Put("/app/skin.ini",
            "[skin]\r\nbackcolor=16777215\r\nFONTFACE=Sans\r\nFontSize = 10\r\nFontColor=1,2\r\n"
            "DescFontColor=0,160,0\r\n");
  const Skin skin = ReadSkin(files, "/app/skin.ini");
  EXPECT_EQ(skin.BackColor, "16777215");
  EXPECT_EQ(skin.FontFace, "Sans");
  EXPECT_EQ(skin.FontSize, "10");
  EXPECT_EQ(skin.FontColor, 0);  // black: not three numbers
  EXPECT_EQ(skin.DescFontColor, 0xA000);
}

}  // namespace
}  // namespace quillbox
