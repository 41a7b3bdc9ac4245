#include "text/name_pattern.h"

#include <gtest/gtest.h>

#include <string>

namespace quillbox {
namespace {

TEST(NamePattern, Matches) {
  struct Case {
    const char* Pattern;
    const char* Name;
    bool Matches;
  };
  const Case kCases[] = {
      {"*.wav", "ding.wav", true},
      {"*.wav", "DING.WAV", true},
      {"*.wav", ".wav", true},
      {"*.wav", "ding.wav.bak", false},
      {"*.wav", "dingwav", false},
      {"*", "anything", true},
      {"*", "", true},
      {"", "", true},
      {"", "a", false},
      {"a?c", "abc", true},
      {"a?c", "ac", false},
      {"a?c", "abbc", false},
      {"*a*b", "xxaxxab", true},
      {"*a*b", "xxaxxabc", false},
      {"a*", "a", true},
      {"a**b", "ab", true},
      {"\xC9*", "\xE9t\xE9", true},
      {"[a]", "a", false},
      {"*.a.b", "x.a.a.b", true},
      {"??", "\xE9\xE8", true},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(MatchesNamePattern(c.Name, c.Pattern), c.Matches) << c.Pattern << " on " << c.Name;
  }
}

TEST(NamePattern, ManyStarsDoNotExplode) {
  std::string pattern;
  for (int i = 0; i < 40; ++i) pattern += "*a";
  EXPECT_FALSE(MatchesNamePattern(std::string(2000, 'a') + "b", pattern));
}

}  // namespace
}  // namespace quillbox
