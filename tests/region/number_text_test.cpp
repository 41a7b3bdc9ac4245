// Exact numbers, and numbers as texts.
#include "region/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>

#include "region/exact_decimal.h"
#include "region/test_region.h"

namespace quillbox {
namespace {

TEST(FailureRule, HidesNoFaultInTheProgram) {
  EXPECT_THROW(Attempt([] { throw std::logic_error("a fault in the program"); }), std::logic_error);
}

TEST(NumberText, IsThePlainForm) {
  struct Case {
    const char* region;
    double number;
    const char* text;
  };
  const Case kCases[] = {
      {"en-US", 1500, "1500"},      {"en-US", 0, "0"},
      {"en-US", -0.0, "0"},         {"en-US", 0.1 + 0.2, "0.3"},
      {"en-US", -1.5, "-1.5"},      {"en-US", 1e21, "1000000000000000000000"},
      {"en-US", 1e-7, "0.0000001"}, {"en-US", 123456789012345678.0, "123456789012346000"},
      {"de-DE", 1.05, "1,05"},      {"sv-SE", 1234567.5, "1234567,5"}};
  for (const Case& c : kCases) {
    EXPECT_EQ(NumberText(c.number, Region(c.region)), c.text) << c.region << ": " << c.number;
  }
  for (const double number : {std::nan(""), std::numeric_limits<double>::infinity()}) {
    EXPECT_THROW(NumberText(number, Region("en-US")), ConversionFailed);
  }
}

TEST(CurrencyText, FollowsTheRegionsPatterns) {
  constexpr auto kTheRegions = std::nullopt;
  struct Case {
    const char* region;
    double amount;
    std::optional<int> decimals;
    const char* text;
  };
  const Case kCases[] = {{"en-US", 1234.5, kTheRegions, "$1,234.50"},
                         {"en-US", -1234.5, kTheRegions, "($1,234.50)"},
                         {"en-US", -0.004, kTheRegions, "$0.00"},
                         {"en-US", 1.005, 2, "$1.01"},
                         {"en-US", 0.5, 0, "$1"},
                         {"en-US", 2, 3, "$2.000"},
                         {"en-GB", -5, kTheRegions, "-\2435.00"},
                         {"de-DE", 1234567.891, kTheRegions, "1.234.567,89 \200"},
                         {"de-DE", -1, kTheRegions, "-1,00 \200"},
                         {"fr-FR", 1234.5, kTheRegions, "1\240234,50 \200"},
                         {"de-CH", -1234.5, kTheRegions, "CHF-1'234.50"},
                         {"sv-SE", 1234.5, kTheRegions, "1\240234,50 kr"}};
  for (const Case& c : kCases) {
    EXPECT_EQ(CurrencyText(c.amount, c.decimals, Region(c.region)), c.text)
        << c.region << ": " << c.amount;
  }
}

TEST(CurrencyText, TakesTextsThatAreNumbers) {
  EXPECT_EQ(CurrencyText("1.234,5 \200", 2, Region("de-DE")), "1.234,50 \200");
  EXPECT_THROW(CurrencyText("N/A", 2, Region("en-US")), ConversionFailed);
  EXPECT_THROW(CurrencyText(1.0, -1, Region("en-US")), ConversionFailed);
  EXPECT_THROW(CurrencyText(1.0, 100, Region("en-US")), ConversionFailed);
}

TEST(GroupedText, RoundsToAWholeNumber) {
  EXPECT_EQ(GroupedText(1499.5, Region("en-US")), "1,500");
  EXPECT_EQ(GroupedText(-1234567, Region("de-CH")), "-1'234'567");
  EXPECT_EQ(GroupedText(-0.4, Region("en-US")), "0");
  EXPECT_EQ(GroupedText(999, Region("en-US")), "999");
  EXPECT_EQ(GroupedText("1\240234,5", Region("fr-FR")), "1\240235");
  EXPECT_THROW(GroupedText("", Region("en-US")), ConversionFailed);
}

TEST(PercentAndDollarForms, ShowOneOrTwoDecimals) {
  struct Case {
    const char* region;
    double number;
    const char *ctr, *ecpm;
  };
  const Case kCases[] = {{"en-US", 0.0123, "1.23%", "$0.01"},
                         {"en-US", 0.5, "50.0%", "$0.5"},
                         {"en-US", 0, "0.0%", "$0.0"},
                         {"en-US", 1234.5, "123450.0%", "$1,234.5"},
                         {"de-DE", 0.00125, "0,13%", "$0,0"},
                         {"de-DE", 1234.567, "123456,7%", "$1.234,57"},
                         {"en-US", -1234.5, "-123450.0%", "-$1,234.5"},
                         {"en-US", -0.00001, "0.0%", "$0.0"},
                         {"fr-FR", 1e6, "100000000,0%", "$1\240000\240000,0"}};
  for (const Case& c : kCases) {
    EXPECT_EQ(CtrText(c.number, Region(c.region)), c.ctr) << c.region << ": " << c.number;
    EXPECT_EQ(EcpmText(c.number, Region(c.region)), c.ecpm) << c.region << ": " << c.number;
  }
}

}  // namespace
}  // namespace quillbox
