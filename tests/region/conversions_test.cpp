// Texts as numbers, and numbers as texts.
#include "region/conversions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "region/number_text.h"
#include "region/test_region.h"

namespace quillbox {
namespace {

TEST(LeadingNumber, ReadsTheHeadOfAnyText) {
  struct Case {
    double number;
    std::vector<std::string> texts;
  };
  constexpr double kLargest = std::numeric_limits<double>::max();
  const Case kCases[] = {{0, {"", "abc", "-", ".", "e5", "$5", "1e-999", "0e99999999999999999999"}},
                         {1, {"1", "1,234", "1\r2", "1e", "1e+", "1\2402", "+1x"}},
                         {1.5, {"1.5", "1.5.2", "1 .\n5"}},
                         {0.5, {".5%", "5E-1", "0.5"}},
                         {-7, {" \t\n-7x", "- 7"}},
                         {1234, {"12 34", "1.234e3", "12.34 e 2"}},
                         {kLargest, {"1e999"}},
                         {-kLargest, {"-1e999"}}};
  for (const Case& c : kCases) {
    for (const std::string& text : c.texts) EXPECT_EQ(LeadingNumber(text), c.number) << text;
  }
}

TEST(ToDouble, ReadsTheRegionsNotation) {
  struct Case {
    const char* region;
    std::optional<double> number;
    std::vector<std::string> texts;
  };
  const Case kCases[] = {
      {"en-US", 1234.5, {"1,234.5", "  $1,234.50 ", "1.2345E3", "1,,23,4.5", "+1234.5,0"}},
      {"en-US", -5, {"-5", "5-", "$-5", "-$5", "5 $-", "(5)", "($5)", "$ (5)", "( 5 )"}},
      {"en-US", 50, {",50", ",,50", "$,50", "50.", "\24050\240", "5e1", "5E+1", "50,"}},
      {"en-US", 0, {"0.", "-0", ".0", "1E-999", "0E999"}},
      {"en-US", 9007199254740992.0, {"9007199254740993"}},
      {"en-US", {}, {"", " ", ".", ",", "-", "$", "()", "1.2.3", "1 2", "5\r", "\t5", "1%", "./A"}},
      {"en-US", {}, {"-5-", "--5", "(-5)", "-(5)", "(5)-", "$5$", "(5", "5)", "((5))", "\2005"}},
      {"en-US", {}, {"1e", "1e+", "1e5.0", "1e1,0", "1d2", "1E999", "e5"}},
      {"en-GB", 5, {"\2435", "5"}},
      {"en-GB", {}, {"$5"}},
      {"de-DE", 1234.5, {"1.234,5", "1234,50 \200", "1.234,5.0"}},
      {"de-DE", 1.2345, {"1,234.5"}},
      {"de-DE", 0, {"0,"}},
      {"de-DE", {}, {"$2.67", "1,2,3"}},
      {"fr-FR", 1234.5, {"1\240234,5", "\2401234,50\240\200"}},
      {"fr-FR", {}, {"1 234,5", "1.5"}},
      {"de-CH", -1234.5, {"CHF-1'234.50", "-CHF 1234.5", "1'234.5-"}},
      {"de-CH", {}, {"1,5", "chf 1"}},
      {"sv-SE", 12.5, {"12,5 kr", "kr12,5"}},
      {"pt-BR", -1234.5, {"-R$ 1.234,50"}},
      {"pt-BR", {}, {"$ 5"}}};
  for (const Case& c : kCases) {
    for (const std::string& text : c.texts) {
      EXPECT_EQ(OrNone([&] { return ToDouble(text, Region(c.region)); }), c.number)
          << c.region << ": " << text;
    }
  }
}

TEST(ToCurrency, IsExactAndRoundsHalfToEven) {
  struct Case {
    std::optional<std::int64_t> amount;  // in ten thousandths
    std::vector<std::string> texts;
  };
  const Case kCases[] = {{12300, {"1.23"}},
                         {0, {"0.00005", "1E-99999999999999999999", "0E99999999999999999999"}},
                         {2, {"0.00015", "0.00025"}},
                         {3, {"0.000250000000000000000001"}},
                         {-2, {"-0.00015"}},
                         {10000, {"0.99995"}},
                         {INT64_MAX, {"922337203685477.5807", "922337203685477.58074"}},
                         {INT64_MIN, {"-922337203685477.5808"}},
                         {{}, {"922337203685477.58075", "-922337203685477.5809"}},
                         {{}, {"999999999999999.9999", "1E99999999999999999999", "x"}}};
  for (const Case& c : kCases) {
    for (const std::string& text : c.texts) {
      EXPECT_EQ(OrNone([&] { return ToCurrency(text, Region("en-US")); }), c.amount) << text;
    }
  }
}

TEST(ToLong, RoundsHalfToEvenWithin32Bits) {
  struct Case {
    std::optional<std::int32_t> number;
    std::vector<std::string> texts;
  };
  const Case kCases[] = {{0, {"0.5"}},
                         {2, {"1.5", "2.5"}},
                         {-2, {"-2.5"}},
                         {3, {"2.51"}},
                         {10, {"9.5"}},
                         {1500, {"1,500"}},
                         {INT32_MAX, {"2147483647.4"}},
                         {INT32_MIN, {"-2147483648.5"}},
                         {{}, {"2147483647.5", "-2147483649", "99999999999999999999", ""}}};
  for (const Case& c : kCases) {
    for (const std::string& text : c.texts) {
      EXPECT_EQ(OrNone([&] { return ToLong(text, Region("en-US")); }), c.number) << text;
    }
  }
}

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
