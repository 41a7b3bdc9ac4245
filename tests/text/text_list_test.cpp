#include "text/text_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

TEST(TextList, JoinsWithTheSeparatorBetween) {
  EXPECT_EQ(JoinText(Texts{}, kListSeparator), "");
  EXPECT_EQ(JoinText(Texts{"one"}, kListSeparator), "one");
  EXPECT_EQ(JoinText(Texts{"a", "", "b|c"}, kListSeparator), "a||||||b|c");
}

TEST(TextList, TakesTextsOut) {
  EXPECT_EQ(WithoutText("a, b, ", ", "), "ab");
  EXPECT_EQ(WithoutText("aaa", "aa"), "a");
  EXPECT_EQ(WithoutText("aabb", "ab"), "ab");  // what comes together only then stays
  EXPECT_EQ(WithoutText("", "x"), "");
}

}  // namespace
}  // namespace quillbox
