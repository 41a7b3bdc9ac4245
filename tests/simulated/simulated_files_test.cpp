// What simulated files hold after failures and power losses.
#include "simulated/simulated_files.h"

#include <gmock/gmock.h>

#include <set>
#include <string>

namespace quillbox {
namespace {

using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;

constexpr int kSeeds = 50;

// What the file can hold when the power goes at any step of the saving, with any seed; "(none)" for
// a file that is gone.
template <typename Save>
std::set<std::string> LeftByPowerLosses(const Save& save) {
  std::set<std::string> left;
  for (std::uint64_t seed = 0; seed < kSeeds; ++seed) {
    for (int step = 0;; ++step) {
      SimulatedFiles files({{"/d/a.ini", "old"}}, seed);
      files.LosePowerAtStep(step);
      save(files);
      const bool stepsDone = files.HasPower();
      files.PowerBack();
      left.insert(files.Read("/d/a.ini").value_or("(none)"));
      if (stepsDone) break;
    }
  }
  return left;
}

TEST(SimulatedFiles, AWriteWithoutAFlushIsCaught) {
  const auto left = LeftByPowerLosses([](SimulatedFiles& files) {
    files.WriteNew("/d/new", "new");
    files.Rename("/d/new", "/d/a.ini");
    files.Flush("/d");
  });
  EXPECT_THAT(left, Contains("")) << "content that was never flushed can be gone";
  EXPECT_THAT(left, Contains(AnyOf("n", "ne"))) << "or cut";
}

TEST(SimulatedFiles, ARenameThatWasNotFlushedMayBeUndone) {
  const auto left = LeftByPowerLosses([](SimulatedFiles& files) {
    files.WriteNew("/d/new", "new");
    files.Flush("/d/new");
    files.Rename("/d/new", "/d/a.ini");
  });
  EXPECT_THAT(left, ElementsAre("new", "old"));
}

TEST(SimulatedFiles, NothingWorksWithoutPower) {
  SimulatedFiles files{{"/d/a", "1"}};
  files.LosePowerAtStep(1);
  EXPECT_TRUE(files.WriteNew("/d/b", "2"));
  EXPECT_TRUE(files.HasPower());
  EXPECT_FALSE(files.Remove("/d/a"));
  EXPECT_FALSE(files.HasPower());
  EXPECT_FALSE(files.Exists("/d/a"));
  EXPECT_EQ(files.Read("/d/b"), std::nullopt);
  EXPECT_FALSE(files.WriteNew("/d/c", "3"));
  EXPECT_FALSE(files.WriteFromOutside("/d/c", "3"));
  files.PowerBack();
  EXPECT_TRUE(files.WriteNew("/d/c", "3"));
}

TEST(SimulatedFiles, ChangesOfNamesHappenInTheirOrder) {
  for (std::uint64_t seed = 0; seed < kSeeds; ++seed) {
    SimulatedFiles files({{"/d/a", "1"}}, seed);
    files.Rename("/d/a", "/d/b");
    files.Rename("/d/b", "/d/c");
    files.PowerBack();
    EXPECT_EQ(files.All().size(), 1U) << "seed " << seed;
    EXPECT_EQ(files.All().begin()->second, "1") << "seed " << seed;
  }
}

}  // namespace
}  // namespace quillbox
