// A process on a simulated host: its end, and what the trace and the store keep of it.
#include <gmock/gmock.h>

#include "simulated/simulated_agents.h"
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

TEST(SimulatedHost, HasNoSecretsInItsTrace) {
  SimulatedHost host;
  host.Opener.OpenPrivately("https://h/in?Email=a&Passwd=secret");
  host.Opener.Open("https://h/Forum/index.php?c=19");
  host.Store.Apply(std::vector<SettingChange>{
      {"AdSense", "Accounts", "one"}, {"AdSense", "Passwords", "tfdsfu"}, {"Misc", "Old", {}}});
  EXPECT_THAT(
      host.Trace(),
      ElementsAre("open https://h/in?...", "open https://h/Forum/index.php?c=19",
                  "store AdSense/Accounts=one", "store AdSense/Passwords=...", "unset Misc/Old"));
}

TEST(SimulatedHost, ItsStoreMayLoseWritesWithTheProgram) {
  SimulatedStore store;
  store.Put("General", "Pause", "old");
  store.SetKeeps(StoreKeeps::kWhileItRuns);
  store.Apply(std::vector<SettingChange>{{"General", "Pause", "new"}});
  EXPECT_EQ(store.Read("General", "Pause"), "new");
  store.ProgramEnded();
  EXPECT_EQ(store.Read("General", "Pause"), "old");
}

TEST(SimulatedHost, ItsAgentsMayWriteAnEmptyLogBeforeTheFullOne) {
  SimulatedHost host;
  AgentBehaviour agent = Answers("0");
  agent.EmptyLogAfter = 350ms;
  host.Agents.Always(agent);
  host.Agents.Start({"Email=a&Passwd=b%#%https://h/|/d/a.dat|/d/a.log", {}});
  host.RunFor(399ms);
  EXPECT_EQ(host.Files.Read("/d/a.log"), "");
  host.RunFor(1ms);
  EXPECT_EQ(host.Files.Read("/d/a.log"), "0");
}

TEST(AgentText, IsCutFromTheRight) {
  const AgentText read =
      ReadAgentText("Email=%61%40%62&Passwd=%31|%#%2%#%https://h/p?q|/app/a b.dat|/app/a.log");
  EXPECT_EQ(read.Username, "a@b");
  EXPECT_EQ(read.Password, "1|%#%2");
  EXPECT_EQ(read.Address, "https://h/p?q");
  EXPECT_EQ(read.DataPath, "/app/a b.dat");
  EXPECT_EQ(read.LogPath, "/app/a.log");
}

}  // namespace
}  // namespace quillbox
