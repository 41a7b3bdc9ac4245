// The code page's characters and their cases.
#include <gtest/gtest.h>

#include <set>

#include "text/code_page.h"

namespace quillbox {
namespace {

TEST(CodePage, EveryCodeIsACharacterAndBack) {
  std::set<char32_t> characters;
  std::string all;
  for (int code = 0; code < 256; ++code) {
    const auto byte = static_cast<unsigned char>(code);
    EXPECT_EQ(FromCodePoint(ToCodePoint(byte)), byte);
    characters.insert(ToCodePoint(byte));
    all += static_cast<char>(byte);
  }
  EXPECT_EQ(characters.size(), 256U);
  EXPECT_EQ(FromUtf8(ToUtf8(all)), all);
}

TEST(CodePage, KnownCharacters) {
  struct Case {
    const char* Text;
    const char* Utf8;
  };
  const Case kCases[] = {
      {"plain", "plain"},
      {"caf\xE9", "caf\xC3\xA9"},
      {"\x80", "\xE2\x82\xAC"},
      {"\x9F", "\xC5\xB8"},
      {"\xFF", "\xC3\xBF"},
      {"\x99", "\xE2\x84\xA2"},
      {"\x81\x9D", "\xC2\x81\xC2\x9D"},
      {"\xA0", "\xC2\xA0"},
      {"\x83", "\xC6\x92"},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(ToUtf8(c.Text), c.Utf8);
    EXPECT_EQ(FromUtf8(c.Utf8), c.Text) << c.Utf8;
  }
}

TEST(CodePage, RefusesWhatItCannotHold) {
  const char* const kCases[] = {
      "\xC4\x80",          // a letter that the code page lacks
      "\xF0\x9F\x98\x80",  // beyond the basic plane
      "\xC2\x80",          // the control character in whose place the euro sign stands
      "\xE9",              // a lone first byte
      "\xC3",              // cut off
      "\xE2\x82",          // cut off
      "\xC3(",             // no continuation
      "\x80",              // a continuation alone
      "\xC0\xAF",          // not the shortest form
      "\xE0\x83\xA9",      // not the shortest form
      "\xED\xA0\x80",      // half of a surrogate pair
      "\xFF",
  };
  for (const char* utf8 : kCases) {
    EXPECT_EQ(FromUtf8(utf8), std::nullopt) << ::testing::PrintToString(utf8);
    EXPECT_EQ(FromUtf8(std::string("a") + utf8 + "b"), std::nullopt)
        << ::testing::PrintToString(utf8);
  }
}

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
