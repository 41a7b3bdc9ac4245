// The Reports window: what it shows, and when it is closed while it waits.
#include <gmock/gmock.h>

#include <chrono>
#include <string>
#include <vector>

#include "simulated/context_on_state.h"
#include "simulated/used_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ReportingProgram : public testing::Test {
 protected:
  static constexpr const char* kReport =
      "heading\n1/1/2007\t1,000\t5\t0.50%\t1\t1.10\n1/2/2007\t2,000\t6\t0.30%\t1\t2.20\nt\na\n";
  static constexpr const char* kNotDownloaded =
      "body <SPAN STYLE=\"font-family: verdana; font-size: 11px; color: red;\">"
      "Error: The requested data could not be downloaded!</SPAN>";
  static constexpr const char* kNoData =
      "body <SPAN STYLE=\"font-family: verdana; font-size: 11px; color: red;\">"
      "No data is available for the selected report and/or date range.</SPAN>";

  // With accounts "one" (of ann) and "two" (of bob).
  void Open() {
    program_.AddAccount("two", "bob", "y");
    program_.StartQuietly();
    OpenWindow();
    host_.Effects.Clear();
  }

  void OpenWindow() { host_.Choose("Reports"); }
  void CloseWindow() {
    host_.Do([this] { host_.Windows.CloseBox(FormName::kReportsWin); });
  }
  ReportsWin& Window() { return *host_.Windows.ReportsWin(); }
  ReportsFields& Fields() { return Window().Fields(); }

  // How long it took.
  std::chrono::milliseconds Generate() {
    const TimePoint begin = host_.Time.Now();
    host_.Do([this] { Fields().Command1.Click(); });
    return host_.Time.Now() - begin;
  }

  static AgentBehaviour Reports(const char* log, std::optional<std::string> report = kReport) {
    AgentBehaviour agent = Answers(log);
    agent.Data = std::move(report);
    return agent;
  }

  // What the window showed.
  std::vector<std::string> Shown() { return host_.Trace({"navigate", "body"}); }

  // Data and log of a run, also when they are unfinished.
  std::vector<std::string> WorkingFiles() {
    std::vector<std::string> files = host_.Files.List("/app", "Report.dat*");
    for (const std::string& log : host_.Files.List("/app", "Report.log*")) files.push_back(log);
    return files;
  }

  UsedProgram program_;
  SimulatedHost& host_ = program_.Host;
};

using ReportsWindow = ReportingProgram;

TEST_F(ReportsWindow, OpensWithItsListsAndAnEmptyPage) {
  Open();
  EXPECT_THAT(Fields().Combo1.Items(), ElementsAre("one", "two"));
  EXPECT_EQ(Fields().Combo2.Items().size(), 21U);
  EXPECT_THAT(Fields().Combo3.Items(),
              ElementsAre("Last 7 Days", "This Month", "Last Month", "All Time"));
  EXPECT_THAT(Fields().Combo4.Items(), ElementsAre("Individual Ad Unit", "Page"));
  for (const ListField* list :
       {&Fields().Combo1, &Fields().Combo2, &Fields().Combo3, &Fields().Combo4}) {
    EXPECT_EQ(list->Selected(), 0U) << list->Name();
  }
  EXPECT_TRUE(Fields().Command1.Enabled());
  Fields().Combo3.Select(2);
  OpenWindow();
  EXPECT_EQ(Fields().Combo3.Selected(), 2U) << "opening an open window changes nothing";
  CloseWindow();
  OpenWindow();
  EXPECT_EQ(Fields().Combo3.Selected(), 0U);
  EXPECT_THAT(host_.Trace({"form", "close", "navigate"}),
              ElementsAre("close ReportsWin", "form ReportsWin", "navigate about:blank"));
}

TEST_F(ReportsWindow, GreysTheUnitForReportsWithoutOne) {
  Open();
  for (const char* title : {"Search Performance - CTR", "Ad Performance - CTR", "Referrals - CTR",
                            "Ad Channel Performance - CTR"}) {
    ASSERT_TRUE(Fields().Combo2.SelectText(title));
    EXPECT_EQ(Fields().Combo4.Enabled(), std::string_view(title).starts_with("Ad")) << title;
    EXPECT_EQ(Fields().Combo4.Text(), "Individual Ad Unit");
  }
}

TEST_F(ReportsWindow, ShowsTheReportOfTheChoices) {
  host_.Files.Put("/app/Report.dat", "stale");
  host_.Files.Put("/app/Report.log", "7");
  host_.Agents.Always(Reports("0"));
  Open();
  Fields().Combo1.Select(1);
  Fields().Combo2.SelectText("Ad Performance - Earnings");
  Fields().Combo3.SelectText("All Time");
  Fields().Combo4.SelectText("Page");
  std::vector<bool> busy;
  Window().WatchBusy([&] {
    busy.push_back(Window().Busy());
    EXPECT_NE(Window().Busy(), Fields().Command1.Enabled());
  });
  // A choice made meanwhile is for the next report.
  host_.After(100ms, [this] { Fields().Combo2.Select(0); });
  Generate();
  EXPECT_THAT(busy, ElementsAre(true, false));
  EXPECT_THAT(host_.Agents.Starts().back().Text,
              AllOf(HasSubstr("Email=%62%6f%62&Passwd=%79%#%https://adsense.example.test/adsense/"),
                    HasSubstr("simpleDate=alltime&unitPref=page&"),
                    HasSubstr("|/app/Report.dat|/app/Report.log")));
  EXPECT_THAT(host_.Trace(),
              ElementsAre("delete /app/Report.dat", "delete /app/Report.log",
                          "agent start 1 Report.dat", "agent write 1 Report.dat",
                          "agent write 1 Report.log", HasSubstr("write /app/Report.html"),
                          HasSubstr("to /app/Report.html"), "navigate /app/Report.html"));
  EXPECT_THAT(host_.Files.Read("/app/Report.html").value_or(""),
              AllOf(HasSubstr("graph.values = \"1.10:2.20\";"), HasSubstr("valueHeader")));
}

TEST_F(ReportsWindow, SaysWhatBecameOfTheReport) {
  struct Case {
    const char* What;
    AgentBehaviour Agent;
    const char* Shown;
    std::chrono::seconds Within;
  };
  const Case kCases[] = {
      {"success", Reports("0"), "navigate /app/Report.html", 1s},
      {"refused", Reports("3"), kNotDownloaded, 1s},
      {"no number, with data", Reports("0\r\n"), "navigate /app/Report.html", 1s},
      {"no number, no data", Reports("words", std::nullopt), kNoData, 1s},
      {"success without a file", Reports("0", std::nullopt), kNoData, 1s},
      {"no day", Reports("0", "heading\ntotals\naverages\n"), kNoData, 1s},
      {"the agent is silent", AgentBehaviour{}, kNotDownloaded, 121s},
  };
  Open();
  for (const Case& c : kCases) {
    host_.Agents.Once(c.Agent);
    host_.Effects.Clear();
    EXPECT_LE(Generate(), c.Within) << c.What;
    EXPECT_THAT(Shown(), ElementsAre(c.Shown)) << c.What;
    EXPECT_TRUE(Fields().Command1.Enabled() && !Window().Busy()) << c.What;
    EXPECT_EQ(host_.Agents.RunningCount(), 0U) << c.What;
  }
}

TEST_F(ReportsWindow, ShowsTheOlderPageWhenTheNewOneCantBeWritten) {
  host_.Files.Put("/app/Report.html", "old");
  host_.Agents.Always(Reports("0"));
  Open();
  host_.After(399ms, [this] {  // behind the log in the same moment
    host_.After(1ms, [this] { host_.Files.SetDisk(DiskState::kFull); });
  });
  Generate();
  EXPECT_THAT(Shown(), ElementsAre("navigate /app/Report.html"));
  EXPECT_EQ(host_.Files.Read("/app/Report.html"), "old");
}

TEST_F(ReportsWindow, WaitsForThePageButNotForEver) {
  host_.Agents.Always(Reports("0"));
  Open();
  for (const auto& [load, wait] : {std::pair{5s, 5s}, std::pair{600s, 30s}}) {
    host_.Browser.SetLoadTime(load);
    const auto time = Generate();
    EXPECT_GE(time, wait);
    EXPECT_LE(time, wait + 1s);
    EXPECT_TRUE(Fields().Command1.Enabled());
  }
}

struct ReportsWindowAlone : ContextOnState {
  ReportsWin Window{program_};
};

TEST_F(ReportsWindowAlone, SaysThatThereIsNoAccount) {
  state_.Accounts.clear();
  Window.Load();
  EXPECT_FALSE(Window.Fields().Command1.Enabled());
  EXPECT_EQ(Window.Fields().Combo1.Selected(), std::nullopt);
  EXPECT_THAT(host_.Trace({"navigate", "body"}),
              ElementsAre("navigate about:blank", HasSubstr("no AdSense account")));
}

TEST_F(ReportsWindowAlone, AnAccountThatHasGoneCantBeDownloaded) {
  Window.Load();
  Window.Fields().Combo1.Select(1);
  state_.Accounts = {"one"};
  Window.Fields().Command1.Click();
  EXPECT_THAT(host_.Trace({"body", "agent"}), ElementsAre(HasSubstr("could not be downloaded")));
  EXPECT_TRUE(Window.Fields().Command1.Enabled());
}

using StaleWindow = ReportingProgram;

TEST_F(StaleWindow, ClosedDuringADownloadShowsNothingMore) {
  host_.Agents.Once(Reports("0"));
  Open();
  host_.After(350ms, [this] {  // the data is there, the log isn't
    host_.Files.Put("/app/Report.log.77.part", "");
    CloseWindow();
    EXPECT_EQ(host_.Agents.RunningCount(), 0U);
    EXPECT_THAT(host_.Files.List("/app", "Report.???"), IsEmpty());
  });
  EXPECT_LE(Generate(), 360ms) << "the wait ends with the window";
  host_.RunFor(200s);
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_THAT(WorkingFiles(), IsEmpty());
  EXPECT_FALSE(host_.Files.Exists("/app/Report.html"));
}

TEST_F(StaleWindow, ClosedWhileThePageLoadsEndsTheWait) {
  host_.Agents.Once(Reports("0"));
  host_.Browser.SetLoadTime(20s);
  Open();
  host_.After(1s, [this] { CloseWindow(); });
  EXPECT_LE(Generate(), 1010ms);
  EXPECT_THAT(WorkingFiles(), IsEmpty());
}

TEST_F(StaleWindow, ClosedAfterAReportLeavesItsFiles) {
  host_.Agents.Once(Reports("0"));
  Open();
  Generate();
  CloseWindow();
  EXPECT_THAT(WorkingFiles(), ElementsAre("Report.dat", "Report.log"));
}

// The first window's wait is still on the stack, below all that the second one does.
TEST_F(StaleWindow, LeavesTheNextWindowAlone) {
  struct Case {
    const char* What;
    AgentBehaviour Second;
    const char* Shown;
  };
  const Case kCases[] = {{"a report", Reports("0"), "navigate /app/Report.html"},
                         {"a failure", Reports("2"), kNotDownloaded}};
  Open();
  for (const Case& c : kCases) {
    host_.Agents.Once(Reports("0", "heading\n1/1/2007\t9\t9\t9\t9\t9\nt\na\n"));
    host_.Agents.Once(c.Second);
    host_.Effects.Clear();
    host_.After(100ms, [this] {
      CloseWindow();
      OpenWindow();
      Fields().Command1.Click();
    });
    host_.After(200ms, [this] {
      EXPECT_TRUE(Window().Busy());
      EXPECT_FALSE(Fields().Command1.Enabled());
    });
    Generate();
    EXPECT_THAT(Shown(), ElementsAre("navigate about:blank", c.Shown)) << c.What;
    EXPECT_TRUE(Fields().Command1.Enabled() && !Window().Busy()) << c.What;
    EXPECT_EQ(host_.Agents.RunningCount(), 0U);
  }
  EXPECT_THAT(host_.Files.Read("/app/Report.html").value_or(""), HasSubstr("1,000:2,000"));
}

TEST_F(StaleWindow, DoesNotTouchAWindowThatIsIdle) {
  host_.Agents.Once(Reports("0"));
  Open();
  bool busyAgain = false;
  // Closed and opened again in one go: the first sequence ends with the new window idle.
  host_.After(100ms, [&] {
    CloseWindow();
    OpenWindow();
    Window().WatchBusy([&] { busyAgain = true; });
  });
  Generate();
  EXPECT_FALSE(busyAgain) << "the old sequence told the new window's watcher";
  EXPECT_TRUE(Fields().Command1.Enabled());
  EXPECT_THAT(Shown(), ElementsAre("navigate about:blank"));
}

}  // namespace
}  // namespace quillbox
