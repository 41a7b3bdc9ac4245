// The refresh cycle, with agents that answer.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "retrieval/refreshing_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

using RefreshCycle = RefreshingProgram;

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
  EXPECT_FALSE(program_.State().RefreshRunning);
  EXPECT_TRUE(CanRefresh());
}

TEST_F(RefreshCycle, StoresHistoryAndRecordTogether) {
  Start(kDownloadContent);
  Refresh();
  const auto& batches = program_.Host.Store.Batches();
  ASSERT_GE(batches.size(), 2U);
  const auto& figures = batches[batches.size() - 2];
  ASSERT_THAT(figures, testing::SizeIs(2));
  EXPECT_EQ(figures[0].Key, "one Impressions");
  EXPECT_EQ(figures[1].Key, "one");
  EXPECT_THAT(batches.back(), testing::SizeIs(1)) << "LastDate, by itself";
}

TEST_F(RefreshCycle, FetchesTheReportsSideBySideAndTheAccountsOneByOne) {
  Start(kDownloadAll, 2);
  Refresh();
  std::vector<std::string> expected;
  for (int turn = 0; turn < 2; ++turn) {
    const auto number = [turn](int run) { return std::to_string(3 * turn + run) + " "; };
    const std::vector<std::string> steps = {"agent start " + number(1) + "Content.dat",
                                            "agent start " + number(2) + "Search.dat",
                                            "agent start " + number(3) + "Referral.dat",
                                            "agent write " + number(1) + "Content.dat",
                                            "agent write " + number(2) + "Search.dat",
                                            "agent write " + number(3) + "Referral.dat",
                                            "agent write " + number(1) + "Content.log",
                                            "agent write " + number(2) + "Search.log",
                                            "agent write " + number(3) + "Referral.log",
                                            "delete /app/Content.dat",
                                            "delete /app/Content.log",
                                            "delete /app/Search.dat",
                                            "delete /app/Search.log",
                                            "delete /app/Referral.dat",
                                            "delete /app/Referral.log"};
    expected.insert(expected.end(), steps.begin(), steps.end());
  }
  expected.emplace_back("sound done.wav");
  EXPECT_THAT(program_.Host.Trace({"agent", "delete", "sound"}), ElementsAreArray(expected));
}

TEST_F(RefreshCycle, WaitsForEveryLogWhateverTheirOrder) {
  AgentBehaviour slowContent = Answers("0");
  slowContent.DataFile = "Content.dat";
  slowContent.LogAfter = 20s;
  program_.Host.Agents.Always(slowContent);
  Start(kDownloadAll);
  const TimePoint begin = program_.Host.Time.Now();
  Refresh();
  EXPECT_GE(program_.Host.Time.Now() - begin, 20s);
  EXPECT_LT(program_.Host.Time.Now() - begin, 21s);
  EXPECT_TRUE(WasEvaluated("one"));
}

TEST_F(RefreshCycle, WaitsForALogThatIsEmptyFirst) {
  AgentBehaviour agent = Answers("0");
  agent.EmptyLogAfter = 1s;
  agent.LogAfter = 9s;
  program_.Host.Agents.Always(agent);
  Start(kDownloadContent);
  const TimePoint begin = program_.Host.Time.Now();
  Refresh();
  EXPECT_GE(program_.Host.Time.Now() - begin, 9s);
  EXPECT_TRUE(WasEvaluated("one"));
}

// The logs' texts, the balloon that they lead to, and whether the reports are evaluated.
TEST_F(RefreshCycle, DecidesByTheCodes) {
  struct Case {
    std::string_view download;
    const char *content, *search, *referral;
    const char* balloon;
    bool evaluated;
  };
  const Case kCases[] = {
      {kDownloadContent, "0", "", "", nullptr, true},
      {kDownloadContent, "0\r\n", "", "", nullptr, true},
      {kDownloadContent, "words", "", "", nullptr, true},
      {kDownloadContent, "1", "", "", kConnect, false},
      {kDownloadContent, "2", "", "", kResponse, false},
      {kDownloadContent, "3", "", "", kRefused, false},
      {kDownloadContent, "3\r\n", "", "", kRefused, false},
      {kDownloadContent, "4", "", "", kConnect, false},
      {kDownloadContent, "7", "", "", nullptr, false},
      {kDownloadSearch, "", "0", "", nullptr, true},
      {kDownloadSearch, "", "3", "", kConnect, false},
      {kDownloadReferrals, "", "", "0", nullptr, true},
      {kDownloadReferrals, "", "", "3", kConnect, false},
      {kDownloadAll, "0", "0", "0", nullptr, true},
      {kDownloadAll, "0", "1", "0", nullptr, true},
      {kDownloadAll, "0", "0", "1", kConnect, false},
      {kDownloadAll, "3", "0", "0", kRefused, false},
      {kDownloadAll, "2", "1", "3", kResponse, false},
      {kDownloadAll, "9", "0", "1", nullptr, false},
  };
  for (const Case& c : kCases) {
    SimulatedProgram program;
    program.UsedBefore();
    program.AddAccount("one", "ann", "x");
    program.Set(kDataToDownload, c.download);
    const auto answer = [&program](const char* dataFile, const char* log) {
      AgentBehaviour agent = Answers(log);
      agent.DataFile = dataFile;
      agent.Data = SampleReport("100");
      program.Host.Agents.Always(agent);
    };
    answer("Content.dat", c.content);
    answer("Search.dat", c.search);
    answer("Referral.dat", c.referral);
    program.Start();
    program.Host.Choose("RefreshNow");
    const std::string row =
        std::string(c.download) + " " + c.content + "/" + c.search + "/" + c.referral;
    std::vector<std::string> balloons;
    if (c.balloon != nullptr) balloons.emplace_back(c.balloon);
    EXPECT_THAT(program.Host.Trace({"balloon"}), ElementsAreArray(balloons)) << row;
    EXPECT_EQ(!program.Host.Store.Read("Accounts", "one").empty(), c.evaluated) << row;
    EXPECT_THAT(program.Host.Files.All(), IsEmpty()) << row;
  }
}

TEST_F(RefreshCycle, FetchesOnlyWhatIsChosen) {
  struct Case {
    const char* download;
    std::vector<std::string> started;
  };
  const Case kCases[] = {
      {"AdSense for Content", {"agent start 1 Content.dat"}},
      {"AdSense for Search", {"agent start 1 Search.dat"}},
      {"Referrals", {"agent start 1 Referral.dat"}},
      {"all", {}},
      {"Both", {}},
      {"", {}},
  };
  for (const Case& c : kCases) {
    SimulatedProgram program;
    program.UsedBefore();
    program.AddAccount("one", "ann", "x");
    program.Set(kDataToDownload, c.download);
    program.Start();
    const TimePoint begin = program.Host.Time.Now();
    program.Host.Choose("RefreshNow");
    std::vector<std::string> started;
    for (const std::string& line : program.Host.Trace({"agent"})) {
      if (line.starts_with("agent start")) started.push_back(line);
    }
    EXPECT_THAT(started, ElementsAreArray(c.started)) << c.download;
    if (c.started.empty()) {
      EXPECT_EQ(program.Host.Time.Now(), begin) << c.download << ": nothing to wait for";
    }
  }
}

TEST_F(RefreshCycle, OneRefusedAccountDoesNotStopTheNext) {
  AgentBehaviour refused = Answers("3");
  refused.Username = "ann";
  program_.Host.Agents.Always(refused);
  Start(kDownloadContent, 2);
  Refresh();
  EXPECT_THAT(program_.Host.Trace({"balloon", "sound"}), ElementsAre(kRefused, "sound done.wav"));
  EXPECT_FALSE(WasEvaluated("one"));
  EXPECT_TRUE(WasEvaluated("two"));
}

TEST_F(RefreshCycle, AFailedFetchLeavesTheStoredFigures) {
  Start(kDownloadContent);
  Refresh();
  const std::string stored = program_.Host.Store.Read("Accounts", "one");
  program_.Host.Agents.Always(Answers("2"));
  Refresh();
  EXPECT_EQ(program_.Host.Store.Read("Accounts", "one"), stored);
}

TEST_F(RefreshCycle, WithoutAnAccountSaysSoAndTouchesNothing) {
  program_.Start();
  program_.Host.RunFor(1s);
  program_.Host.Effects.Clear();
  program_.Host.Boxes.Add({.WhileOpen = [this] { EXPECT_FALSE(CanRefresh()); }});
  Refresh();
  EXPECT_THAT(
      program_.Host.Trace(),
      ElementsAre("menu RefreshNow",
                  "box You must complete the \"AdSense Account\" section of the Quillbox\r\n"
                  "Options before attempting to retrieve your AdSense information!",
                  "answer OK"));
  EXPECT_EQ(program_.Host.Boxes.Shown()[0].Icon, BoxIcon::kInformation);
  EXPECT_EQ(program_.Host.Boxes.Shown()[0].Title, "Quillbox");
  EXPECT_FALSE(program_.State().RefreshRunning);
  EXPECT_TRUE(CanRefresh());
}

TEST_F(RefreshCycle, TheMenuStartsNoSecondOne) {
  Start(kDownloadContent);
  program_.Host.After(200ms, [this] {
    EXPECT_TRUE(program_.State().RefreshRunning);
    EXPECT_FALSE(CanRefresh());
    EXPECT_FALSE(program_.Host.Choose("RefreshNow"));
  });
  Refresh();
  EXPECT_THAT(program_.Host.Agents.Starts(), testing::SizeIs(1));
}

TEST_F(RefreshCycle, WorksWithTheOldFilesOfACycleThatWasCutOff) {
  AgentBehaviour slow = Answers("0");
  slow.LogAfter = 30s;
  program_.Host.Agents.Always(slow);
  program_.Host.Files.Put("/app/Content.log", "3");
  Start(kDownloadContent, 2);
  const TimePoint begin = program_.Host.Time.Now();
  Refresh();
  EXPECT_THAT(program_.Host.Trace({"balloon"}), ElementsAre(kRefused));
  EXPECT_FALSE(WasEvaluated("one"));
  EXPECT_TRUE(WasEvaluated("two")) << "the agent of the first turn must not spoil the second";
  EXPECT_LT(program_.Host.Time.Now() - begin, 31s);
  program_.Host.RunFor(1h);
  EXPECT_THAT(WorkingFiles(), IsEmpty());
}

TEST_F(RefreshCycle, AnUnreadableLogLeavesTheCodeAsItWas) {
  program_.Host.Files.SetReadable("/app/Content.log", false);
  AgentBehaviour refused = Answers("3");
  refused.Data = SampleReport("100");
  program_.Host.Agents.Always(refused);
  Start(kDownloadContent);
  Refresh();
  EXPECT_THAT(program_.Host.Trace({"balloon"}), IsEmpty());
  EXPECT_TRUE(WasEvaluated("one")) << "a code that never held anything counts as good";
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

TEST_F(RefreshCycle, ADiskThatTakesNoDeletionLeavesTheProgramAlive) {
  Start(kDownloadContent);
  program_.Host.After(500ms, [this] { program_.Host.Files.SetDisk(DiskState::kReadOnly); });
  AgentBehaviour agent = Answers("0");
  agent.DataAfter = agent.LogAfter = 499ms;
  program_.Host.Agents.Always(agent);
  Refresh();
  EXPECT_FALSE(program_.State().RefreshRunning);
  EXPECT_TRUE(CanRefresh());
}

TEST_F(RefreshCycle, RebuildsTheAccountMenus) {
  Start(kDownloadContent, 2);
  Refresh();
  Refresh();
  for (const MenuItem& item : program_.State().TrayMenu) {
    if (item.Name == "Help" || !item.Submenu) continue;
    EXPECT_EQ(item.Items.size(), 2U) << item.Caption;
  }
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

}  // namespace
}  // namespace quillbox
