// The limits can be made shorter, and nothing else.
#include "request/limits.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

TEST(Limits, AreShortenedOnly) {
  struct Case {
    const char* text;
    int connect, idle, total;
  };
  const Case kCases[] = {{"", 20'000, 60'000, 100'000},
                         {"1,2,3", 1, 2, 3},
                         {"30000,2,900000", 20'000, 2, 100'000},
                         {"1,2", 20'000, 60'000, 100'000},
                         {"1,2,3,", 20'000, 60'000, 100'000},
                         {"-1,2,3", 20'000, 60'000, 100'000},
                         {"1,2,99999999999", 20'000, 60'000, 100'000}};
  for (const Case& c : kCases) {
    const Limits limits = ShortenedLimits(c.text);
    EXPECT_EQ(limits.Connect.count(), c.connect) << c.text;
    EXPECT_EQ(limits.Idle.count(), c.idle) << c.text;
    EXPECT_EQ(limits.Total.count(), c.total) << c.text;
    EXPECT_EQ(limits.BodyBytes, 64U * 1024 * 1024) << c.text;
  }
}

}  // namespace
}  // namespace quillbox
