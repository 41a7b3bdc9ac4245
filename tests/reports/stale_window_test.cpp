// A Reports window that is closed while it waits.
#include <gmock/gmock.h>

#include "reports/reporting_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

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

TEST_F(StaleWindow, GoesWithTheProgram) {
  host_.Agents.Once(Reports("0"));
  Open();
  host_.After(350ms, [this] { host_.Choose("Exit"); });
  Generate();
  EXPECT_TRUE(host_.Ended());
  EXPECT_THAT(Shown(), IsEmpty());
  EXPECT_THAT(WorkingFiles(), IsEmpty());
}

}  // namespace
}  // namespace quillbox
