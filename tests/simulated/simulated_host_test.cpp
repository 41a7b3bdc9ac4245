// A process on a simulated host: its end, and what the trace and the store keep of it.
#include <gmock/gmock.h>

#include "simulated/used_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(SimulatedHost, RunsNothingOfAProcessAfterItsEnd) {
  UsedProgram program;
  SimulatedHost& host = program.Host;
  host.Agents.Always(AgentBehaviour{});
  program.Start();
  const auto timer =
      host.TimerSource.NewTimer(1min, [&host] { host.Speaker.PlaySoundFile("tick"); });
  timer->SetEnabled(true);
  host.Choose("About");
  host.After(1s, [&host] { host.Kill(); });
  host.Choose("RefreshNow");
  EXPECT_EQ(host.Time.Now(), 1s);
  EXPECT_FALSE(host.Choose("Exit"));
  host.Effects.Clear();
  host.TrayRestarts();
  host.LaunchAgain();
  host.RunFor(1h);
  EXPECT_THAT(host.Trace(), IsEmpty());
  EXPECT_EQ(host.Agents.RunningCount(), 0U);
  EXPECT_EQ(host.Windows.AboutWin(), nullptr);
}

TEST(SimulatedHost, ChoosesItemsByNameOrCaptionAlsoInSubmenus) {
  UsedProgram program;
  program.StartQuietly();
  EXPECT_FALSE(program.Host.Choose("Help"));
  EXPECT_FALSE(program.Host.Choose("Helpless"));
  EXPECT_TRUE(program.Host.Choose("Send Bug Report"));
  EXPECT_THAT(program.Host.Trace({"menu"}),
              ElementsAre("menu Help, no such item", "menu Helpless, no such item",
                          "menu Send Bug Report"));
}

TEST(SimulatedHost, HasNoSecretsInItsTrace) {
  SimulatedHost host;
  host.Opener.Open("https://h/in?Email=a&Passwd=secret");
  host.Opener.Open("https://h/Forum/index.php?c=19");
  host.Store.Apply(std::vector<SettingChange>{
      {"AdSense", "Accounts", "one"}, {"AdSense", "Passwords", "tfdsfu"}, {"Misc", "Old", {}}});
  EXPECT_THAT(
      host.Trace(),
      ElementsAre("open https://h/in?...", "open https://h/Forum/index.php?c=19",
                  "store AdSense/Accounts=one", "store AdSense/Passwords=...", "unset Misc/Old"));
}

TEST(SimulatedHost, ItsStoreKeepsAsToldTo) {
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

}  // namespace
}  // namespace quillbox
