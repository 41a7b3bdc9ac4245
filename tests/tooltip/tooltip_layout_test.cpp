#include "tooltip/tooltip_layout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quillbox {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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
  // Descriptions of 9 and 5 characters, values of 9 and 3.
  const TooltipLayout layout =
      LayOutTooltip("Earnings: $1234.5\r\nCTR.: 1%", FixedMeasure(100, 100, 195));
  EXPECT_EQ(layout.Width, 360 + 1700);
  EXPECT_EQ(layout.Height, 300 + 195 + 25 + 195);
  ASSERT_EQ(layout.Rows.size(), 2U);
  EXPECT_EQ(layout.Rows[0].Left, 180);
  EXPECT_EQ(layout.Rows[0].Top, 150);
  EXPECT_EQ(layout.Rows[0].ValueLeft, 180 + 900);
  EXPECT_EQ(layout.Rows[1].Top, 150 + 195 + 25);
  EXPECT_EQ(layout.Rows[1].ValueLeft, 180 + 500);
}

TEST(TooltipLayout, RowInFrontOfALineWithoutOneKeepsItsGap) {
  EXPECT_EQ(LayOutTooltip("A: b\r\nplain", FixedMeasure(10, 10, 195)).Height, 300 + 195 + 25);
  EXPECT_EQ(LayOutTooltip("plain\r\nA: b", FixedMeasure(10, 10, 195)).Height, 300 + 195);
}

TEST(TooltipLayout, HeightsStayWholeNumbers) {
  // 0 + 24.5 rounds to 24, and 24 + 25 + 24.5 to 74.
  EXPECT_EQ(LayOutTooltip("plain\r\nA: b", FixedMeasure(10, 10, 24.5)).Height, 300 + 24);
  EXPECT_EQ(LayOutTooltip("A: b\r\nC: d", FixedMeasure(10, 10, 24.5)).Height, 300 + 50 + 24);
}

TEST(TooltipLayout, TextWithoutRowsGivesTheSmallestWindow) {
  const TooltipLayout layout = LayOutTooltip("Quillbox", FixedMeasure(10, 10, 195));
  EXPECT_THAT(layout.Rows, IsEmpty());
  EXPECT_EQ(layout.Width, 360);
  EXPECT_EQ(layout.Height, 300);
}

}  // namespace
}  // namespace quillbox
