#include "evaluation/exact_decimal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "test_region.h"

namespace quillbox {
namespace {

TEST(ExactDecimal, RoundsByEitherRule) {
  struct Case {
    double number;
    int decimals;
    const char* halfEven;
    const char* halfAway;
  };
  const Case kCases[] = {{0.125, 2, "0.12", "0.13"},
                         {0.375, 2, "0.38", "0.38"},
                         {-0.125, 2, "-0.12", "-0.13"},
                         {1.005, 2, "1", "1.01"},
                         {0.5, 0, "0", "1"},
                         {1.5, 0, "2", "2"},
                         {9.995, 2, "10", "10"},
                         {0.05, 0, "0", "0"},
                         {-0.004, 2, "0", "0"},
                         {999.9, 0, "1000", "1000"},
                         {0.0951, 1, "0.1", "0.1"},
                         {1e20, 2, "100000000000000000000", "100000000000000000000"}};
  for (const Case& c : kCases) {
    const ExactDecimal number = ExactDecimal::OfDouble(c.number);
    EXPECT_EQ(number.Rounded(c.decimals, Rounding::kHalfEven).Text(), c.halfEven) << c.number;
    EXPECT_EQ(number.Rounded(c.decimals, Rounding::kHalfAwayFromZero).Text(), c.halfAway)
        << c.number;
  }
}

TEST(ExactDecimal, ComparesByValue) {
  const ExactDecimal kAscending[] = {
      {true, "2", 2},   {true, "12", 1}, {true, "1", 1}, {}, {false, "1", 0}, {false, "1", 1},
      {false, "11", 1}, {false, "2", 1}, {false, "1", 2}};
  for (std::size_t i = 1; i < std::size(kAscending); ++i) {
    EXPECT_LT(kAscending[i - 1], kAscending[i]) << kAscending[i].Text();
  }
  EXPECT_EQ(ExactDecimal(false, "0150", 2), ExactDecimal(false, "15", 1));
  EXPECT_EQ(ExactDecimal(true, "000", 7), ExactDecimal());
}

TEST(ExactDecimal, TakesFifteenDigitsOfADouble) {
  EXPECT_EQ(ExactDecimal::OfDouble(0.1 + 0.2).Text(), "0.3");
  EXPECT_EQ(ExactDecimal::OfDouble(-1234567890123456.0).Text(), "-1234567890123460");
  EXPECT_EQ(ExactDecimal::OfDouble(5e-324).Text().size(), 324 + 16u);
  EXPECT_FALSE(OrNone([] { return ExactDecimal::OfDouble(std::nan("")); }));
  EXPECT_FALSE(
      OrNone([] { return ExactDecimal::OfDouble(std::numeric_limits<double>::infinity()); }));
}

}  // namespace
}  // namespace quillbox
