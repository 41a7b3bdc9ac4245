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

// What the file can hold when the power goes right after the saving, with any seed.
template <typename Save>
std::set<std::string> LeftByPowerLosses(const Save& save) {
  std::set<std::string> left;
  for (std::uint64_t seed = 0; seed < kSeeds; ++seed) {
    SimulatedFiles files({{"/d/a.ini", "old"}}, seed);
    save(files);
    files.PowerBack();
    const std::string content = files.Read("/d/a.ini").value_or("(none)");
    EXPECT_TRUE(content == "old" || !files.Exists("/d/new")) << "names change in their order";
    left.insert(content);
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

}  // namespace
}  // namespace quillbox
