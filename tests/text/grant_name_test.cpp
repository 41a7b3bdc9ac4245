#include "text/grant_name.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

TEST(GrantName, IsToldFromPasswords) {
  struct Case {
    const char* password;
    bool isName;
  };
  const Case kCases[] = {{"grant:ABCDEFGHIJ27", true},
                         {"grant:ABCDEFGHIJ2", false},
                         {"grant:ABCDEFGHIJ277", false},
                         {"grant:abcdefghij27", false},
                         {"grant:ABCDEFGHIJ28", false},
                         {"Grant:ABCDEFGHIJ27", false},
                         {"grant:../../../ABC", false},
                         {"ABCDEFGHIJ27", false},
                         {"", false},
                         {"grant:", false}};
  for (const Case& c : kCases) EXPECT_EQ(IsGrantName(c.password), c.isName) << c.password;
}

}  // namespace
}  // namespace quillbox
