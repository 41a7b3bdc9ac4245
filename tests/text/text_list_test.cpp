// Lists in one text, patterns of names, and long names cut.
#include <gmock/gmock.h>

#include <string>
#include <vector>

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
                {"abcdef", 5,
                 "ab\x85"
                 "ef"},
                {"abcdef", 4,
                 "ab\x85"
                 "f"},
                {"abc", 1, "\x85"},
                {"abc", 0, ""}};
  for (const Case& c : kCases) EXPECT_EQ(Elided(c.Name, c.Longest), c.Shown) << c.Name;
}

}  // namespace
}  // namespace quillbox
