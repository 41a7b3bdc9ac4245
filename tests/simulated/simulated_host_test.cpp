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

}  // namespace
}  // namespace quillbox
