// The power goes in the middle of Apply: each setting is the old or the new one, and the account
// lists are of one piece.
#include <gtest/gtest.h>

#include "options/options_on_store.h"
#include "simulated/simulated_files.h"
#include "simulated/simulated_store.h"

namespace quillbox {
namespace {

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
      const StoppedApply found = InspectStoppedApply(options.Store());
      EXPECT_EQ(found.Problem, "");
      EXPECT_TRUE(!done || found.Generation == 2) << "a finished Apply outlives the power";
      if (found.Old > 0 && found.New > 0) ++mixed;
      ASSERT_FALSE(HasFailure()) << "seed " << seed << ", step " << step;
    }
  }
  EXPECT_GE(mixed, 6) << "stopped between two pages";
}

}  // namespace
}  // namespace quillbox
