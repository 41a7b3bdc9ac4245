#include "evaluation/failure_rule.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace quillbox {
namespace {

TEST(FailureRule, AFailedStepIsDroppedAndAFailedTestIsTrue) {
  int done = 0;
  Attempt([&] { done = 1; });
  Attempt([&] { done = std::vector<int>{}.empty() ? throw StepFailed{} : 2; });
  EXPECT_EQ(done, 1);
  EXPECT_TRUE(TrueOrFailed([]() -> bool { throw StepFailed{}; }));
  EXPECT_FALSE(TrueOrFailed([] { return false; }));
}

TEST(FailureRule, OtherErrorsAreNotHidden) {
  EXPECT_THROW(Attempt([] { throw std::logic_error("a fault in the program"); }), std::logic_error);
}

}  // namespace
}  // namespace quillbox
