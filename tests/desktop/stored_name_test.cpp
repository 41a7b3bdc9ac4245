#include "desktop/stored_name.h"

#include <gtest/gtest.h>

#include <set>

namespace quillbox {
namespace {

TEST(StoredName, ReadsBackEveryTextAndNoTwoCollide) {
  std::set<QString> stored;
  std::size_t count = 0;
  const auto check = [&](const std::string& name) {
    const QString form = ToStoredName(name);
    EXPECT_EQ(FromStoredName(form), name) << form.toStdString();
    stored.insert(form);
    ++count;
  };
  check("");
  for (int first = 0; first < 256; ++first) {
    check(std::string(1, static_cast<char>(first)));
    for (int second = 0; second < 256; ++second) {
      check({static_cast<char>(first), static_cast<char>(second)});
    }
  }
  EXPECT_EQ(stored.size(), count);
}

TEST(StoredName, HasNothingThatQtReadsInItsOwnWay) {
  EXPECT_EQ(ToStoredName("a/b\\c"), "a_2Fb_5Cc");
  EXPECT_EQ(ToStoredName(" x_ "), "_20x_5F_20");
  EXPECT_EQ(ToStoredName("Use24Hour"), "Use24Hour");
}

TEST(StoredName, RefusesWhatItNeverWrites) {
  const QString kCases[] = {"", "a b", "_4", "_", "a_", "_4g", "_ab", "\u00e4"};
  for (const QString& stored : kCases) {
    const auto name = FromStoredName(stored);
    EXPECT_TRUE(!name || (stored == "_" && name->empty())) << stored.toStdString();
  }
}

}  // namespace
}  // namespace quillbox
