// The power goes in the middle of Apply: each setting is the old or the new one, and the account
// lists are of one piece.
#include <gtest/gtest.h>

#include "options/options_on_store.h"
#include "simulated/simulated_files.h"
#include "simulated/simulated_store.h"

namespace quillbox {
namespace {

// Carries out some batches, and none after them.
class LosingStore final : public PerUserStore {
 public:
  void LosePowerAfter(int batches) { left_ = batches; }
  bool HasPower() const { return left_ >= 0; }

  std::string Read(std::string_view section, std::string_view key) override {
    return store_.Read(section, key);
  }
  bool Apply(std::span<const SettingChange> changes) override {
    return --left_ >= 0 && store_.Apply(changes);
  }

 private:
  SimulatedStore store_;
  int left_ = 1000;
};

// `mixed` counts those of which a part of the pages was written.
void ExpectStopped(const SettingsStore& store, bool done, int& mixed) {
  const StoppedApply found = InspectStoppedApply(store);
  EXPECT_EQ(found.Problem, "");
  EXPECT_TRUE(!done || found.Generation == 2) << "a finished Apply outlives the power";
  if (found.Old > 0 && found.New > 0) ++mixed;
}

TEST(ApplyPower, APerUserStoreStopsBetweenPages) {
  bool done = false;
  int mixed = 0;
  for (int batches = 0; !done; ++batches) {
    LosingStore store;
    SimulatedFiles files;
    OptionsOnStore options(store, files, "/app", "");
    options.Apply(1);
    store.LosePowerAfter(batches);
    options.Apply(2);
    done = store.HasPower();
    ExpectStopped(options.Store(), done, mixed);
    ASSERT_FALSE(HasFailure()) << "after batch " << batches;
  }
  EXPECT_GE(mixed, 6);
}

TEST(ApplyPower, ASettingsFileStopsBetweenPages) {
  int mixed = 0;
  for (std::uint64_t seed = 0; seed < 5; ++seed) {
    bool done = false;
    for (int step = 0; !done; ++step) {
      SimulatedStore store;
      SimulatedFiles files({}, seed);
      OptionsOnStore options(store, files, "/app", "ann");
      options.Apply(1);
      files.LosePowerAtStep(step);
      options.Apply(2);
      done = files.HasPower();
      files.PowerBack();
      ExpectStopped(options.Store(), done, mixed);
      ASSERT_FALSE(HasFailure()) << "seed " << seed << ", step " << step;
    }
  }
  EXPECT_GE(mixed, 6);
}

}  // namespace
}  // namespace quillbox
