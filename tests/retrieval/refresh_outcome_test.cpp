// What result codes mean: the table of both codes.
#include "retrieval/refresh_outcome.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

const std::string kConnect = "Could not connect to d.test!";
const std::string kResponse =
    "No response received from d.test!\r\n\r\nPlease verify that you are connected to the "
    "Internet.";
const std::string kRefused =
    "You have entered an incorrect username and/or password for the \"ann\" AdSense account in "
    "the \"AdSense\" tab of the Quillbox Options window.";

TEST(RefreshOutcome, FollowsTheCodes) {
  struct Case {
    const char *content, *other;
    bool evaluate;
    std::optional<std::string> balloon;
  };
  const Case kCases[] = {
      {"", "", true, {}},
      {"0", "", true, {}},
      {"0\r\n", " 0", true, {}},
      {"none", "x", true, {}},
      {"", "1", false, kConnect},
      {"0", "3", false, kConnect},
      {"1", "", false, kConnect},
      {"4", "0", false, kConnect},
      {"2", "0", false, kResponse},
      {"3", "0", false, kRefused},
      {"3\r\n", "", false, kRefused},
      {"5", "", false, {}},
      {"-1", "", false, {}},
      {"0.5", "", false, {}},
      {"1 2", "", false, {}},
  };
  for (const Case& c : kCases) {
    const RefreshOutcome outcome = DecideRefreshOutcome(c.content, c.other, "ann", "d.test");
    EXPECT_EQ(outcome.Evaluate, c.evaluate) << c.content << " and " << c.other;
    EXPECT_EQ(outcome.Balloon, c.balloon) << c.content << " and " << c.other;
  }
}

}  // namespace
}  // namespace quillbox
