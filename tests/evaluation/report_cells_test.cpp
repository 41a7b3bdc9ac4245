#include "evaluation/report_cells.h"

#include <gtest/gtest.h>

#include "test_region.h"

namespace quillbox {
namespace {

struct CellCase {
  const char* region;
  std::string cell, fixed;
};

TEST(FixPercentCell, PutsTheSeparatorAtTheFirstOtherCharacter) {
  const CellCase kCases[] = {{"en-US", "0.97%", "0.97%"}, {"de-DE", "0.97%", "0,97%"},
                             {"en-US", "0%", "0."},       {"de-DE", "0%", "0,"},
                             {"en-US", "12", "12"},       {"en-US", "", ""},
                             {"en-US", "N/A", "./A"}};
  for (const CellCase& c : kCases) {
    std::string cell = c.cell;
    FixPercentCell(cell, Region(c.region));
    EXPECT_EQ(cell, c.fixed) << c.region << ": " << c.cell;
  }
}

TEST(FixMoneyCell, WorksByPosition) {
  const CellCase kCases[] = {{"en-US", "1,234.56", "1,234.56"},
                             {"de-DE", "1,234.56", "1.234,56"},
                             {"en-US", "$12", ".12"},
                             {"fr-FR", "1,234.56", "1\240234,56"},
                             {"en-US", "N/A", "./A"},
                             {"de-CH", "$1,234.56", "'1'234.56"},
                             {"en-US", "-1.50", ",1.50"},
                             {"en-US", "123", "123"},
                             {"en-US", "1.5", "1.5"},
                             {"en-US", "$1234", "$1234"},
                             {"en-US", "$5", "$5"},
                             {"en-US", "", ""},
                             {"en-US", "2.00\r", "2.00\r"}};
  for (const CellCase& c : kCases) {
    std::string cell = c.cell;
    FixMoneyCell(cell, Region(c.region));
    EXPECT_EQ(cell, c.fixed) << c.region << ": " << c.cell;
  }
}

TEST(FixMoneyCell, LongCellsLoseTheirMarksInFrontOfTheFiveHundredth) {
  std::string cell(505, 'x');
  cell.replace(502, 3, "123");
  FixMoneyCell(cell, Region("en-US"));
  EXPECT_EQ(cell, std::string(499, ',') + "xxx123");
  std::string shorter = std::string(497, 'x') + "123";
  FixMoneyCell(shorter, Region("en-US"));
  EXPECT_EQ(shorter, std::string(497, 'x') + "123");
}

TEST(FixMoneyCell, ARegionWithoutGroupsGivesTheDigitOfItsSample) {
  RegionalSettings ungrouped;
  ungrouped.Group = "";
  std::string cell = "$1.50";
  FixMoneyCell(cell, ungrouped);
  EXPECT_EQ(cell, "01.50");
}

TEST(NormalizeReportCell, KnowsOneNotation) {
  struct Case {
    std::string_view cell;
    std::optional<std::string> text;
  };
  const Case kCases[] = {
      {"1.234,56", "1,234.56"}, {"1,234.56", "1,234.56"}, {"12.34%", "12.34"}, {"12,34%", "12,34"},
      {"0.5%", "0.5"},          {"123", "123"},           {"12", {}},          {"", {}}};
  for (const Case& c : kCases) {
    EXPECT_EQ(OrNone([&] { return NormalizeReportCell(c.cell); }), c.text) << c.cell;
  }
}

TEST(KeepNumberChars, KeepsDigitsMarksAndInnerBlanks) {
  EXPECT_EQ(KeepNumberChars("$1,234.50"), "1,234.50");
  EXPECT_EQ(KeepNumberChars("1.234,50 \200"), "1.234,50");
  EXPECT_EQ(KeepNumberChars("(a 1 2 b)"), "1 2");
  EXPECT_EQ(KeepNumberChars("1\240234,50 kr"), "1234,50");
  EXPECT_EQ(KeepNumberChars("-n/a "), "");
  EXPECT_EQ(KeepNumberChars(""), "");
}

}  // namespace
}  // namespace quillbox
