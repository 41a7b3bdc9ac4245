#include "update/version_decision.h"

#include <gtest/gtest.h>

namespace quillbox {
namespace {

TEST(VersionDecision, PublishedVersionAgainstTheInstalledOne) {
  struct Case {
    const char* Installed;
    std::optional<std::string> File;
    bool Asked;
    const char* Announced;
    VersionOutcome Outcome;
  };
  const Case kCases[] = {
      {"1.3.0", std::nullopt, true, "", VersionOutcome::kFailed},
      {"1.3.0", "1.3.1\r\n", false, "", VersionOutcome::kAsk},
      {"1.3.0", "  1.3.1  ", true, "", VersionOutcome::kAsk},
      {"1.3.0", "1.3.0", true, "", VersionOutcome::kCurrent},
      {"1.3.0", "1.10.0", false, "", VersionOutcome::kCurrent},  // order of texts, not numbers
      {"1.3.0", "2.0", false, "", VersionOutcome::kAsk},
      {"1.3.0", "1.3", false, "", VersionOutcome::kCurrent},
      {"1.3.0", "", false, "", VersionOutcome::kCurrent},
      {"", "0.1", false, "", VersionOutcome::kAsk},
      {"1.3.0", "123456789012345678901", true, "", VersionOutcome::kFailed},
      {"1.3.0", "12345678901234567890", true, "", VersionOutcome::kCurrent},
      {"1.3.0", "1.3.1\r\n", false, "1.3.1\r\n", VersionOutcome::kSilent},
      {"1.3.0", "1.3.1\r\n", false, "1.3.1", VersionOutcome::kAsk},
      {"1.3.0", "1.3.1", true, "1.3.1", VersionOutcome::kAsk},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(DecideVersion(c.Installed, c.File, c.Asked, c.Announced).Outcome, c.Outcome)
        << c.Installed << " against " << c.File.value_or("(none)") << ", announced " << c.Announced;
  }
}

TEST(VersionDecision, QuestionNamesTheVersionWithoutItsLineEnd) {
  EXPECT_EQ(DecideVersion("1.3.0", "1.3.1\r\n", false, "").Question,
            "Quillbox v1.3.1 is available!  Would you like to download the setup now?");
}

}  // namespace
}  // namespace quillbox
