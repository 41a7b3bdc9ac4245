// The simulated per-user store and its switches.
#include "simulated/simulated_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillbox {
namespace {

using testing::ElementsAre;

TEST(SimulatedStore, KeepsAsToldTo) {
  struct Case {
    const char* what;
    StoreKeeps keeps;
    std::string meanwhile, afterwards;
  };
  const Case kCases[] = {{"all", StoreKeeps::kAll, "new", "new"},
                         {"nothing", StoreKeeps::kNothing, "old", "old"},
                         {"while it runs", StoreKeeps::kWhileItRuns, "new", "old"}};
  for (const Case& c : kCases) {
    SimulatedStore store;
    store.Put("General", "Pause", "old");
    store.SetKeeps(c.keeps);
    store.Apply(std::vector<SettingChange>{{"General", "Pause", "new"}});
    EXPECT_EQ(store.Read("General", "Pause"), c.meanwhile) << c.what;
    store.ProgramEnded();
    EXPECT_EQ(store.Read("General", "Pause"), c.afterwards) << c.what;
  }
}

TEST(SimulatedStore, MatchesWithoutCaseAndKeepsTheFirstSpelling) {
  SimulatedStore store;
  store.Apply(std::vector<SettingChange>{{"General", "Pause", "1"}});
  store.Apply(std::vector<SettingChange>{{"GENERAL", "pause", "2"}});
  ASSERT_EQ(store.All().size(), 1U);
  EXPECT_EQ(store.All()[0].Section + "/" + store.All()[0].Key, "General/Pause");
  EXPECT_EQ(store.Read("general", "PAUSE"), "2");
}

TEST(SimulatedStore, TheTraceHasNoSecrets) {
  SimulatedTime time;
  SimulatedTrace trace(time);
  SimulatedStore store(&trace);
  store.Apply(std::vector<SettingChange>{
      {"AdSense", "Accounts", "one"}, {"AdSense", "Passwords", "tfdsfu"}, {"Misc", "Old", {}}});
  EXPECT_THAT(trace.Lines(), ElementsAre("store AdSense/Accounts=one",
                                         "store AdSense/Passwords=...", "unset Misc/Old"));
  EXPECT_EQ(store.Read("AdSense", "Passwords"), "tfdsfu");
}

}  // namespace
}  // namespace quillbox
