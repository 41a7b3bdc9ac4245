#include "evaluation/report_row.h"

#include <gtest/gtest.h>

#include "test_region.h"

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

}  // namespace
}  // namespace quillbox
