// The refresh cycle, with agents that answer, answer late or never, and accounts that change.
#include <gmock/gmock.h>

#include <array>
#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "retrieval/refresh_cycle.h"
#include "simulated/context_on_state.h"
#include "simulated/used_program.h"
#include "tray/tray_menu.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class RefreshCycle : public testing::Test {
 protected:
  RefreshCycle() { program_.Host.Agents.Always(Answers("0")); }

  // Accounts "one" (of ann) and "two" (of bob); "one" is not the primary account.
  void Start(std::string_view dataToDownload, int accounts = 1) {
    if (accounts > 1) program_.AddAccount("two", "bob", "y");
    program_.Set(kDataToDownload, dataToDownload);
    program_.StartQuietly();
    program_.Set(kDownloadedSound, "done.wav");  // not in SoundFiles: the cycle's alone
  }

  // How long it took.
  std::chrono::milliseconds Refresh() {
    const TimePoint begin = program_.Host.Time.Now();
    program_.Host.Choose("RefreshNow");
    return program_.Host.Time.Now() - begin;
  }

  bool CanRefresh() const {
    return program_.State().TrayMenu[2].Enabled && !program_.State().RefreshRunning;
  }

  bool WasEvaluated(const std::string& account) {
    return !program_.Host.Store.Read("Accounts", account).empty();
  }

  UsedProgram program_;
};

constexpr const char* kConnect = "balloon Quillbox: Could not connect to example.test!";
constexpr const char* kResponse =
    "balloon Quillbox: No response received from example.test!\r\n\r\n"
    "Please verify that you are connected to the Internet.";
constexpr const char* kRefused =
    "balloon Quillbox: You have entered an incorrect username and/or password for the \"ann\" "
    "AdSense account in the \"AdSense\" tab of the Quillbox Options window.";

TEST_F(RefreshCycle, OfOneReportDoesItsStepsInOrder) {
  Start(kDownloadContent);
  Refresh();
  EXPECT_THAT(
      program_.Host.Trace(),
      ElementsAre("menu RefreshNow", "agent start 1 Content.dat", "agent write 1 Content.dat",
                  "agent write 1 Content.log", StartsWith("store Accounts/one Impressions="),
                  StartsWith("store Accounts/one="), "store Misc/LastDate=1/31/2007",
                  "delete /app/Content.dat", "delete /app/Content.log", "sound done.wav"));
  const auto& batches = program_.Host.Store.Batches();
  ASSERT_GE(batches.size(), 2U);
  EXPECT_EQ(batches[batches.size() - 2].size(), 2U) << "history and record together";
  EXPECT_EQ(batches.back().size(), 1U) << "LastDate, by itself";
  EXPECT_TRUE(CanRefresh());
}

TEST_F(RefreshCycle, FetchesTheReportsSideBySideAndTheAccountsOneByOne) {
  Start(kDownloadAll, 2);
  Refresh();
  EXPECT_THAT(
      program_.Host.Trace({"agent", "sound"}),
      ElementsAre(
          "agent start 1 Content.dat", "agent start 2 Search.dat", "agent start 3 Referral.dat",
          "agent write 1 Content.dat", "agent write 2 Search.dat", "agent write 3 Referral.dat",
          "agent write 1 Content.log", "agent write 2 Search.log", "agent write 3 Referral.log",
          "agent start 4 Content.dat", "agent start 5 Search.dat", "agent start 6 Referral.dat",
          "agent write 4 Content.dat", "agent write 5 Search.dat", "agent write 6 Referral.dat",
          "agent write 4 Content.log", "agent write 5 Search.log", "agent write 6 Referral.log",
          "sound done.wav"));
}

// The logs' texts, the balloon that they lead to, and whether the reports are evaluated.
TEST(RefreshCycleOnce, DecidesByTheCodes) {
  using Logs = std::array<const char*, 3>;  // of content, search and referrals
  struct Case {
    std::string_view download;
    const char* balloon;
    bool evaluated;
    std::vector<Logs> logs;
  };
  const Case kCases[] = {
      {kDownloadContent, nullptr, true, {{"0"}, {"0\r\n"}, {"words"}}},
      {kDownloadContent, kConnect, false, {{"1"}, {"4"}}},
      {kDownloadContent, kResponse, false, {{"2"}}},
      {kDownloadContent, kRefused, false, {{"3"}, {"3\r\n"}}},
      {kDownloadContent, nullptr, false, {{"7"}, {"-1"}, {"0.5"}, {"1 2"}}},
      {kDownloadSearch, nullptr, true, {{"", " 0"}}},
      {kDownloadSearch, kConnect, false, {{"", "3"}}},
      {kDownloadReferrals, nullptr, true, {{"", "", "x"}}},
      {kDownloadReferrals, kConnect, false, {{"", "", "3"}}},
      {kDownloadAll, nullptr, true, {{"0", "0", "0"}, {"0", "1", "0"}}},
      {kDownloadAll, kConnect, false, {{"0", "0", "1"}}},
      {kDownloadAll, kRefused, false, {{"3", "0", "0"}}},
      {kDownloadAll, kResponse, false, {{"2", "1", "3"}}},
      {kDownloadAll, nullptr, false, {{"9", "0", "1"}}},
  };
  for (const Case& c : kCases) {
    for (const Logs& logs : c.logs) {
      UsedProgram program;
      program.Set(kDataToDownload, c.download);
      std::string row(c.download);
      for (std::size_t i = 0; i < logs.size(); ++i) {
        const char* const kFiles[] = {"Content.dat", "Search.dat", "Referral.dat"};
        AgentBehaviour agent = ForFile(kFiles[i], Answers(logs[i] == nullptr ? "" : logs[i]));
        agent.Data = SampleReport("100");
        program.Host.Agents.Always(agent);
        row += "/" + *agent.Log;
      }
      program.Start();
      program.Host.Choose("RefreshNow");
      std::vector<std::string> balloons;
      if (c.balloon != nullptr) balloons.emplace_back(c.balloon);
      EXPECT_THAT(program.Host.Trace({"balloon"}), ElementsAreArray(balloons)) << row;
      EXPECT_EQ(!program.Host.Store.Read("Accounts", "one").empty(), c.evaluated) << row;
      EXPECT_THAT(program.Host.Files.All(), IsEmpty()) << row;
      EXPECT_EQ(program.Host.Agents.Starts().size(), c.download == kDownloadAll ? 3U : 1U) << row;
    }
  }
}

TEST_F(RefreshCycle, WithNothingToFetchDoesNotWait) {
  Start("");
  for (const char* download : {"all", "Both", ""}) {
    program_.Set(kDataToDownload, download);
    EXPECT_EQ(Refresh(), 0s) << download;
  }
  EXPECT_THAT(program_.Host.Agents.Starts(), IsEmpty());
}

TEST(RefreshCycleAlone, WithoutAnAccountSaysSoAndTouchesNothing) {
  SimulatedProgram program;
  program.UsedBefore();
  program.Start();
  program.Host.RunFor(1s);
  program.Host.Effects.Clear();
  program.Host.Boxes.Add({.WhileOpen = [&] { EXPECT_FALSE(program.Host.Choose("RefreshNow")); }});
  program.Host.Choose("RefreshNow");
  EXPECT_THAT(
      program.Host.Trace(),
      ElementsAre("menu RefreshNow",
                  "box You must complete the \"AdSense Account\" section of the Quillbox\r\n"
                  "Options before attempting to retrieve your AdSense information!",
                  "menu RefreshNow, disabled", "answer OK"));
  EXPECT_EQ(program.Host.Boxes.Shown()[0].Icon, BoxIcon::kInformation);
  EXPECT_FALSE(program.State().RefreshRunning);
  EXPECT_TRUE(program.State().TrayMenu[2].Enabled);
}

TEST_F(RefreshCycle, WorksWithTheOldFilesOfACycleThatWasCutOff) {
  program_.Host.Agents.Always(Answers("0", 30s));
  program_.Host.Files.Put("/app/Content.log", "3");
  Start(kDownloadContent, 2);
  EXPECT_LT(Refresh(), 31s);
  EXPECT_THAT(program_.Host.Trace({"balloon", "sound"}), ElementsAre(kRefused, "sound done.wav"));
  EXPECT_FALSE(WasEvaluated("one"));
  EXPECT_TRUE(WasEvaluated("two")) << "the agent of the first turn must not spoil the second";
  program_.Host.RunFor(1h);
  EXPECT_THAT(program_.Host.Files.All(), IsEmpty());
}

TEST_F(RefreshCycle, TheCodeThatStaysMayBeTheLastAccounts) {
  program_.Host.Agents.Always(Answers("3"));
  Start(kDownloadContent, 2);
  program_.Host.After(500ms,
                      [this] { program_.Host.Files.SetReadable("/app/Content.log", false); });
  Refresh();
  EXPECT_THAT(program_.Host.Trace({"balloon"}),
              ElementsAre(HasSubstr("for the \"ann\""), HasSubstr("for the \"bob\"")));
}

TEST_F(RefreshCycle, PlaysTheSoundTextAsItStands) {
  struct Case {
    const char* setting;
    std::vector<std::string> played;
  };
  const Case kCases[] = {{"", {}}, {"(None)", {"sound (None)"}}, {"a.wav", {"sound a.wav"}}};
  Start(kDownloadContent);
  program_.Host.Agents.Always(Answers("1"));
  for (const Case& c : kCases) {
    program_.Set(kDownloadedSound, c.setting);
    program_.Host.Effects.Clear();
    Refresh();
    EXPECT_THAT(program_.Host.Trace({"sound"}), ElementsAreArray(c.played)) << c.setting;
  }
}

TEST_F(RefreshCycle, NeedsAnAnswerOfEachAgentInTime) {
  struct Case {
    const char* what;
    std::string_view download;
    std::chrono::milliseconds time;  // so long and less than a second more
    bool evaluated;
    std::vector<AgentBehaviour> agents;
  };
  const Case kCases[] = {
      {"silence", kDownloadContent, 120s, false, {AgentBehaviour{}}},
      {"just in time", kDownloadContent, 119900ms, true, {Answers("0", 119900ms)}},
      {"one of three dies, and the others are done",
       kDownloadAll,
       7s,
       false,
       {ForFile("Search.dat", DiesAfter(1s)), ForFile("Referral.dat", Answers("0", 7s))}}};
  Start(kDownloadContent);
  for (const Case& c : kCases) {
    program_.Set(kDataToDownload, c.download);
    program_.Host.Store.Put("Accounts", "one", "");
    program_.Host.Agents.Always(Answers("0"));
    for (const AgentBehaviour& agent : c.agents) program_.Host.Agents.Always(agent);
    program_.Host.Effects.Clear();
    const auto time = Refresh();
    EXPECT_GE(time, c.time) << c.what;
    EXPECT_LT(time, c.time + 1s) << c.what;
    std::vector<std::string> told = {"sound done.wav"};
    if (!c.evaluated) told.insert(told.begin(), kResponse);
    EXPECT_THAT(program_.Host.Trace({"balloon", "sound"}), ElementsAreArray(told)) << c.what;
    EXPECT_EQ(WasEvaluated("one"), c.evaluated) << c.what;
    EXPECT_THAT(program_.Host.Files.All(), IsEmpty()) << c.what;
  }
}

TEST_F(RefreshCycle, AnAnswerThatCameDuringANestedWaitCountsHoweverLateItIsSeen) {
  program_.Host.Agents.Always(Answers("0", 100s));
  Start(kDownloadContent);
  Host ports = program_.Host.Ports();
  program_.Host.After(50s, [ports]() mutable { ports.Events.Sleep(200s); });
  Refresh();
  EXPECT_TRUE(WasEvaluated("one"));
}

// The cycle on a state that the test owns, as the Options dialog does.
struct ChangingAccounts : ContextOnState {
  ChangingAccounts() {
    host_.Store.Put("TrayTooltip", "DataToDownload", "AdSense for Content");
    host_.Agents.Always(Answers("0"));
    BuildTraySubmenus(program_);
  }
  void Refresh() {
    host_.Do([this] { RefreshAllAccounts(program_); });
  }
};

void Resize(AccountList& list, std::size_t size) {
  list.Accounts.resize(size, "four");
  list.Usernames.resize(size, "eve");
  list.Passwords.resize(size, "w");
}

void RemoveFirst(AccountList& list) {
  list.Accounts.erase(list.Accounts.begin());
  list.Usernames.erase(list.Usernames.begin());
  list.Passwords.erase(list.Passwords.begin());
}

TEST_F(ChangingAccounts, GetNoFiguresOfOthers) {
  struct Case {
    const char* what;
    std::function<void(AccountList&)> change;  // in the turn of "one"
    std::size_t runs;
    std::vector<std::string> evaluated;
  };
  const Case kCases[] = {
      {"shrinks", [](AccountList& list) { Resize(list, 1); }, 1, {"one"}},
      {"is emptied", [](AccountList& list) { Resize(list, 0); }, 1, {}},
      {"its turn is removed", RemoveFirst, 2, {"three"}},
      {"renamed", [](AccountList& list) { list.Accounts[0] = "uno"; }, 3, {"two", "three", "uno"}},
      {"of another", [](AccountList& list) { list.Usernames[0] = "dan"; }, 3, {"two", "three"}},
      {"grows", [](AccountList& list) { Resize(list, 4); }, 3, {"one", "two", "three"}}};
  AccountList& list = state_;
  const AccountList atFirst = list;
  for (const Case& c : kCases) {
    list = atFirst;
    const std::size_t runsBefore = host_.Agents.Starts().size();
    host_.After(100ms, [&] { c.change(list); });
    Refresh();
    EXPECT_FALSE(state_.RefreshRunning) << c.what;
    EXPECT_EQ(host_.Agents.Starts().size() - runsBefore, c.runs) << c.what;
    std::vector<std::string> evaluated;
    for (const char* account : {"one", "two", "three", "four", "uno"}) {
      if (!host_.Store.Read("Accounts", account).empty()) evaluated.emplace_back(account);
      host_.Store.Put("Accounts", account, "");
    }
    EXPECT_EQ(evaluated, c.evaluated) << c.what;
  }
}

TEST_F(ChangingAccounts, ASettingChangedDuringTheCycleCountsFromTheNext) {
  host_.After(100ms, [this] { host_.Store.Put("TrayTooltip", "DataToDownload", "Referrals"); });
  Refresh();
  for (const AgentStart& start : host_.Agents.Starts()) {
    EXPECT_THAT(start.Text, HasSubstr("/app/Content.dat"));
  }
}

}  // namespace
}  // namespace quillbox
