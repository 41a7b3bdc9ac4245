// Settings in a file when the power goes in the middle of a write.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "config/settings_store.h"
#include "simulated/simulated_files.h"
#include "simulated/simulated_store.h"

namespace quillbox {
namespace {

using testing::ElementsAre;

// Both settings after the power went at one step of writing them together; "done" true when the
// power outlasted the write.
std::string PairAfterPowerLoss(int step, std::uint64_t seed, bool& done) {
  SimulatedFiles files({{"/app/ann.ini", "[Misc]\r\nRUNS=1\r\nLASTDATE=old\r\n"}}, seed);
  SimulatedStore userStore;
  const ApplicationFolder folder("/app", "/app", '/');
  const std::string profile = "ann";
  SettingsStore store(userStore, files, folder, profile);
  files.LosePowerAtStep(step);
  SettingBatch batch;
  batch.Write(kRuns, "2").Write(kLastDate, "new");
  store.WriteBatch(batch);
  done = files.HasPower();
  files.PowerBack();
  return store.ReadSetting(kRuns) + " " + store.ReadSetting(kLastDate);
}

TEST(SettingsFile, ABatchIsThereWhollyOrNotAtAllAfterAPowerLoss) {
  std::set<std::string> pairs;
  for (std::uint64_t seed = 0; seed < 50; ++seed) {
    bool done = false;
    for (int step = 0; !done; ++step) {
      const std::string pair = PairAfterPowerLoss(step, seed, done);
      EXPECT_TRUE(!done || pair == "2 new") << "a finished write outlives the power, seed " << seed;
      pairs.insert(pair);
    }
  }
  EXPECT_THAT(pairs, ElementsAre("1 old", "2 new"));
}

}  // namespace
}  // namespace quillbox
