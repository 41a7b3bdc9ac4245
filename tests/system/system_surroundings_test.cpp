// The clock and the environment.
#include <gtest/gtest.h>
#include <stdlib.h>

#include "system/system_surroundings.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;

TEST(SystemClock, LocalTimeFollowsTheTimeZone) {
  struct Case {
    const char* Zone;
    std::chrono::seconds East;
  };
  const Case kCases[] = {
      {"UTC0", 0h}, {"EAST-5:30", 5h + 30min}, {"WEST11", -11h}, {"FAR-14", 14h}};
  SystemClock clock;
  for (const Case& c : kCases) {
    ::setenv("TZ", c.Zone, 1);
    const auto now = [] {
      return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    };
    const auto before = now().time_since_epoch();
    const auto local = clock.LocalTime().time_since_epoch();
    const auto after = now().time_since_epoch();
    EXPECT_GE(local - c.East, before) << c.Zone;
    EXPECT_LE(local - c.East, after) << c.Zone;
  }
  ::unsetenv("TZ");
}

TEST(SystemEnvironment, TheVeryNameComesFirst) {
  for (const char* const name : {"Username", "USERNAME", "username"}) ::unsetenv(name);
  SystemEnvironment environment;
  ::setenv("USERNAME", "ann", 1);
  EXPECT_EQ(environment.Variable("Username"), "ann");
  ::setenv("Username", "bob", 1);
  EXPECT_EQ(environment.Variable("Username"), "bob");
  ::setenv("Username", "\xE9", 1);
  EXPECT_EQ(environment.Variable("Username"), "") << "no UTF-8";
}

}  // namespace
}  // namespace quillbox
