// A report's rows, and their cells.
#include <gtest/gtest.h>

#include "evaluation/report_row.h"
#include "region/test_region.h"

namespace quillbox {
namespace {

TEST(TailOfReport, CountsLineFeedsFromTheEnd) {
  struct Case {
    std::string_view text, tail;
  };
  const Case kCases[] = {{"head\nday\nmonth\nlast\n", "day\nmonth\nlast\n"},
                         {"x\nhead\nday\nmonth\nlast\n", "day\nmonth\nlast\n"},
                         {"head\nolder\nday\nmonth\nlast", "older\nday\nmonth\nlast"},
                         {"none", "none"},
                         {"one\nhere", "one\nhere"},
                         {"one\n", "one\n"},
                         {"two\nlines\nleft", "left"},
                         {"two\nlines\n", ""},
                         {"a\nb\nc\n", "a\nb\nc\n"},
                         {"\nin front", "in front"},
                         {"\nfirst\n", "first\n"},
                         {"\na\nb\n", "a\nb\n"},
                         {"\na\nb\nc\n", "a\nb\nc\n"},
                         {"\n", ""},
                         {"", ""}};
  for (const Case& c : kCases) EXPECT_EQ(TailOfReport(c.text), c.tail) << c.text;
}

constexpr std::string_view kPlaceholder = "1/31/2007\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0";

std::optional<std::string> Cell(const std::optional<std::string>& text, const RowLayout& layout,
                                std::size_t RowLayout::*cell) {
  const ReportRow row = ReadReportRow(text, layout, kPlaceholder, Region("de-DE"));
  return OrNone([&] { return std::string(row.At(cell)); });
}

TEST(ReadReportRow, RemovesQuotesAndNormalisesCells) {
  const std::string plain =
      "h\n1/2/2007\t1,000\t3\t0.30%\t1.50\t$1,234.56\nTotals\t9\t8\t7%\t6.00\t5.00\nlast\n";
  const std::string quoted =
      "h\n\"1/2/2007\"\t\"1,000\"\t3\t\"0.30%\"\t1.50\t\"$1,234.56\"\n"
      "Totals\t9\t8\t7%\t6.00\t5.00\nlast\n";
  for (const std::string& text : {plain, quoted}) {
    EXPECT_EQ(Cell(text, kContentLayout, &RowLayout::ReportDate), "1/2/2007");
    EXPECT_EQ(Cell(text, kContentLayout, &RowLayout::Impressions), "1,000");
    EXPECT_EQ(Cell(text, kContentLayout, &RowLayout::Ctr), "0,30%");
    EXPECT_EQ(Cell(text, kContentLayout, &RowLayout::Earnings), ".1.234,56");
    EXPECT_EQ(Cell(text, kContentLayout, &RowLayout::MonthCtr), "7,");
    EXPECT_EQ(Cell(text, kContentLayout, &RowLayout::MonthEarnings), "5,00");
  }
}

TEST(ReadReportRow, ThePlaceholderStandsInForShortTexts) {
  const std::optional<std::string> kShort[] = {{}, "", "123456789", "\"\"\"1\"2\"3456789\""};
  for (const auto& text : kShort) {
    EXPECT_EQ(Cell(text, kReferralLayout, &RowLayout::ReportDate), "1/31/2007");
    EXPECT_EQ(Cell(text, kReferralLayout, &RowLayout::MonthCtr), "0");
    EXPECT_EQ(Cell(text, kReferralLayout, &RowLayout::MonthEcpm), std::nullopt);
    EXPECT_EQ(Cell(text, kContentLayout, &RowLayout::MonthEarnings), "0");
  }
  EXPECT_EQ(Cell("1234567890", kReferralLayout, &RowLayout::ReportDate), "1234567890");
}

TEST(ReadReportRow, CutsCellsAtTabsAlone) {
  const std::string text = "h\r\n1/2/2007\t1\t2\t3%\t1.50\t2.00\r\nt\r\nl\r\n";
  EXPECT_EQ(Cell(text, kContentLayout, &RowLayout::Earnings), "2.00\r");
  EXPECT_EQ(Cell("two lines\nof text\n", kContentLayout, &RowLayout::ReportDate), std::nullopt);
}

// The cell as the function leaves it.
using Fix = void (*)(std::string&, const RegionalSettings&);
std::string Fixed(Fix fix, std::string cell, const RegionalSettings& region) {
  fix(cell, region);
  return cell;
}

TEST(FixedCells, WorkByPosition) {
  struct Case {
    Fix fix;
    const char *region, *cell, *fixed;
  };
  const Case kCases[] = {{FixPercentCell, "en-US", "0.97%", "0.97%"},
                         {FixPercentCell, "de-DE", "0.97%", "0,97%"},
                         {FixPercentCell, "de-DE", "0%", "0,"},
                         {FixPercentCell, "en-US", "12", "12"},
                         {FixPercentCell, "en-US", "", ""},
                         {FixPercentCell, "en-US", "N/A", "./A"},
                         {FixMoneyCell, "en-US", "1,234.56", "1,234.56"},
                         {FixMoneyCell, "de-DE", "1,234.56", "1.234,56"},
                         {FixMoneyCell, "en-US", "$12", ".12"},
                         {FixMoneyCell, "fr-FR", "1,234.56", "1\240234,56"},
                         {FixMoneyCell, "en-US", "N/A", "./A"},
                         {FixMoneyCell, "de-CH", "$1,234.56", "'1'234.56"},
                         {FixMoneyCell, "en-US", "-1.50", ",1.50"},
                         {FixMoneyCell, "en-US", "123", "123"},
                         {FixMoneyCell, "en-US", "$1234", "$1234"},
                         {FixMoneyCell, "en-US", "$5", "$5"},
                         {FixMoneyCell, "en-US", "", ""},
                         {FixMoneyCell, "en-US", "2.00\r", "2.00\r"}};
  for (const Case& c : kCases) {
    EXPECT_EQ(Fixed(c.fix, c.cell, Region(c.region)), c.fixed) << c.region << ": " << c.cell;
  }
}

TEST(FixedCells, LongAmountsLoseTheirMarksInFrontOfTheFiveHundredth) {
  const std::string shorter = std::string(497, 'x') + "123";
  EXPECT_EQ(Fixed(FixMoneyCell, shorter, Region("en-US")), shorter);
  EXPECT_EQ(Fixed(FixMoneyCell, std::string(502, 'x') + "123", Region("en-US")),
            std::string(499, ',') + "xxx123");
}

}  // namespace
}  // namespace quillbox
