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

class SystemEnvironmentTest : public ::testing::Test {
 protected:
  void SetUp() override {
    for (const char* name : {"Username", "USERNAME", "username", "UserName"}) ::unsetenv(name);
  }

  SystemEnvironment environment;
};

TEST_F(SystemEnvironmentTest, FindsANameInAnyCase) {
  EXPECT_EQ(environment.Variable("Username"), "");
  ::setenv("USERNAME", "ann", 1);
  EXPECT_EQ(environment.Variable("Username"), "ann");
  ::setenv("Username", "bob", 1);
  EXPECT_EQ(environment.Variable("Username"), "bob") << "the very name comes first";
  EXPECT_EQ(environment.Variable("Usernam"), "");
}

TEST_F(SystemEnvironmentTest, ValuesComeInTheCodePage) {
  ::setenv("Username", "jos\xC3\xA9=x", 1);
  EXPECT_EQ(environment.Variable("Username"), "jos\xE9=x");
  for (const char* value : {"\xD0\xB4", "\xE9", ""}) {
    ::setenv("Username", value, 1);
    EXPECT_EQ(environment.Variable("Username"), "") << value;
  }
}

}  // namespace
}  // namespace quillbox
