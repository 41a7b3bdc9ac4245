// Lists in one text, patterns of names, long names cut, and texts as requests carry them.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "text/escaping.h"
#include "text/grant_name.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

using Texts = std::vector<std::string>;

TEST(TextList, SplitsFromLeftToRight) {
  struct Case {
    const char* Text;
    Texts Entries;
  };
  const Case kCases[] = {
      {"", {}},
      {"one", {"one"}},
      {"one|||two", {"one", "two"}},
      {"a|b|||c||d", {"a|b", "c||d"}},
      {"|||", {"", ""}},
      {"a||||b", {"a", "|b"}},  // an entry that ended in a bar
      {"a||||||b", {"a", "", "b"}},
      {"a|||b||", {"a", "b||"}},  // cut inside a separator
  };
  for (const Case& c : kCases) EXPECT_EQ(SplitText(c.Text, kListSeparator), c.Entries) << c.Text;
}

TEST(TextList, TakesTextsOut) {
  EXPECT_EQ(WithoutText("a, b, ", ", "), "ab");
  EXPECT_EQ(WithoutText("aaa", "aa"), "a");
  EXPECT_EQ(WithoutText("aabb", "ab"), "ab");  // what comes together only then stays
  EXPECT_EQ(WithoutText("", "x"), "");
}

TEST(NamePattern, Matches) {
  struct Case {
    const char* Pattern;
    std::vector<const char*> Matching, Others;
  };
  const Case kCases[] = {
      {"*.wav", {"ding.wav", "DING.WAV", ".wav"}, {"ding.wav.bak", "dingwav"}},
      {"*", {"anything", ""}, {}},
      {"", {""}, {"a"}},
      {"a?c", {"abc"}, {"ac", "abbc"}},
      {"*a*b", {"xxaxxab"}, {"xxaxxabc"}},
      {"a*", {"a"}, {}},
      {"a**b", {"ab"}, {}},
      {"\xC9*", {"\xE9t\xE9"}, {}},
      {"[a]", {}, {"a"}},
      {"*.a.b", {"x.a.a.b"}, {}},
      {"??", {"\xE9\xE8"}, {}},
  };
  for (const Case& c : kCases) {
    const std::string row = std::string(c.Pattern) + " on ";
    for (const char* name : c.Matching)
      EXPECT_TRUE(MatchesNamePattern(name, c.Pattern)) << row << name;
    for (const char* name : c.Others)
      EXPECT_FALSE(MatchesNamePattern(name, c.Pattern)) << row << name;
  }
}

TEST(NamePattern, ManyStarsDoNotExplode) {
  std::string pattern;
  for (int i = 0; i < 40; ++i) pattern += "*a";
  EXPECT_FALSE(MatchesNamePattern(std::string(2000, 'a') + "b", pattern));
}

TEST(Elided, KeepsBothEndsOfWhatIsTooLong) {
  const struct Case {
    const char* Name;
    std::size_t Longest;
    const char* Shown;
  } kCases[] = {{"", 5, ""},
                {"abcde", 5, "abcde"},
                {"abcdef", 5, "ab\205ef"},
                {"abcdef", 4, "ab\205f"},
                {"abc", 1, "\x85"},
                {"abc", 0, ""}};
  for (const Case& c : kCases) EXPECT_EQ(Elided(c.Name, c.Longest), c.Shown) << c.Name;
}

TEST(FormEncoding, KnownTexts) {
  struct Case {
    const char* Text;
    const char* Encoded;
  };
  const Case kCases[] = {
      {"", ""},
      {"a.b", "%61%2E%62"},
      {"J", "%4A"},
      {"j", "%6a"},
      {"O", "%4F"},
      {"o", "%6f"},
      {"09", "%30%39"},
      {"_+-&/?@ .=", "%5F%2B%2D%26%2F%3F%40%20%2E%3D"},
      {"%", "%"},
      {"%41", "%%34%31"},
      {"|:;,!\"#\r\n", "|:;,!\"#\r\n"},
      {"\xE9\xFF", "\xE9\xFF"},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(EncodeFormValue(c.Text), c.Encoded) << c.Text;
    EXPECT_EQ(DecodeFormValue(c.Encoded), c.Text) << c.Encoded;
  }
}

TEST(FormEncoding, DecodingLeavesWhatNoEncoderWrote) {
  for (const char* text : {"%", "%%", "%4", "a%", "%G1", "%1G", "100%"}) {
    EXPECT_EQ(DecodeFormValue(text), text);
  }
}

TEST(GrantName, IsToldFromPasswords) {
  EXPECT_TRUE(IsGrantName("grant:ABCDEFGHIJ27"));
  for (const char* password :
       {"grant:ABCDEFGHIJ2", "grant:ABCDEFGHIJ277", "grant:abcdefghij27", "grant:ABCDEFGHIJ28",
        "Grant:ABCDEFGHIJ27", "grant:../../../ABC", "ABCDEFGHIJ27", "", "grant:"}) {
    EXPECT_FALSE(IsGrantName(password)) << password;
  }
}

}  // namespace
}  // namespace quillbox
