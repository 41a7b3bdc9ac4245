#include "text/letter_case.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

TEST(LetterCase, KnownLetters) {
  struct Case {
    const char* Lower;
    const char* Upper;
  };
  const Case kCases[] = {
      {"use24hour", "USE24HOUR"},
      {"\xE9\xE0\xFE", "\xC9\xC0\xDE"},
      {"\x9A\x9C\x9E", "\x8A\x8C\x8E"},
      {"\xFF", "\x9F"},
      {"@[`{", "@[`{"},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(UpperCase(std::string_view(c.Lower)), c.Upper);
    EXPECT_EQ(LowerCase(std::string_view(c.Upper)), c.Lower);
    EXPECT_TRUE(EqualIgnoringCase(c.Lower, c.Upper)) << c.Lower;
  }
}

TEST(LetterCase, SignsThatOnlyLookLikePairsStay) {
  // The signs for times and divided by, sharp s, and the micro sign.
  for (const char sign : {'\xD7', '\xF7', '\xDF', '\xB5'}) {
    EXPECT_EQ(UpperCase(sign), sign);
    EXPECT_EQ(LowerCase(sign), sign);
  }
  EXPECT_FALSE(EqualIgnoringCase("\xD7", "\xF7"));
}

TEST(LetterCase, FoldingTwiceChangesNothingMore) {
  for (int code = 0; code < 256; ++code) {
    const char c = static_cast<char>(code);
    EXPECT_EQ(LowerCase(UpperCase(c)), LowerCase(c)) << code;
    EXPECT_EQ(UpperCase(LowerCase(c)), UpperCase(c)) << code;
  }
}

TEST(LetterCase, OrderAgreesWithEquality) {
  const LessIgnoringCase less;
  EXPECT_FALSE(less("Ann", "aNN"));
  EXPECT_FALSE(less("aNN", "Ann"));
  EXPECT_TRUE(less("ann", "Anna"));
  EXPECT_TRUE(less("Z", "\xE9"));
  EXPECT_FALSE(EqualIgnoringCase("ann", "anna"));
}

}  // namespace
}  // namespace quillbox
