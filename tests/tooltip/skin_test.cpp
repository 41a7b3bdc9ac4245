#include "tooltip/skin.h"

#include <gtest/gtest.h>

#include "simulated/simulated_files.h"

namespace quillbox {
namespace {

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
