#include "system/system_environment.h"

#include <gtest/gtest.h>
#include <stdlib.h>

namespace quillbox {
namespace {

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
