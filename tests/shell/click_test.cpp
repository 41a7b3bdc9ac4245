// Single and double clicks on the tray icon.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulated/sample_report.h"
#include "simulated/simulated_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAreArray;
using testing::IsEmpty;

class ClickTest : public testing::Test {
 protected:
  ClickTest() {
    program_.UsedBefore();
    program_.AddAccount("one", "ann", "x");
    program_.Set(kPrimaryAccount, "one");
    program_.Set(kDataToDownload, kDownloadContent);
    AgentBehaviour agent = Answers("1");
    agent.LogAfter = 10s;
    host_.Agents.Always(agent);
  }

  void Start(std::string_view single, std::string_view twice) {
    program_.Set(kTraySingleAction, single);
    program_.Set(kTrayAction, twice);
    program_.Start();
    host_.RunFor(1s);
    host_.Effects.Clear();
    begin_ = host_.Time.Now();
  }

  void LeftDownIn(std::chrono::milliseconds time) {
    host_.After(time, [this] { host_.LeftDown(); });
  }
  void DoubleClickIn(std::chrono::milliseconds time) {
    host_.After(time, [this] { host_.DoubleClick(); });
  }

  // What the clicks brought about, each with its milliseconds.
  std::vector<std::string> Effects() const {
    std::vector<std::string> effects;
    for (const TraceEntry& entry : host_.Effects.Entries()) {
      const bool begins = entry.What == "agent" && entry.Text.starts_with("start");
      if (!begins && entry.What != "form" && entry.What != "open") continue;
      effects.push_back(std::to_string((entry.At - begin_).count()) + " " + entry.What);
    }
    return effects;
  }

  SimulatedProgram program_;
  SimulatedHost& host_ = program_.Host;
  TimePoint begin_{0};
};

TEST_F(ClickTest, TwoHundredMillisecondsTellSingleFromDouble) {
  struct Case {
    const char* what;
    std::vector<std::chrono::milliseconds> down, doubled;
    std::vector<std::string> effects;
  };
  const Case kCases[] = {{"a click", {0ms}, {}, {"200 open"}},
                         {"a double click", {0ms}, {120ms}, {"120 form"}},
                         {"at the last moment", {0ms}, {199ms}, {"199 form"}},
                         {"a slow double click", {0ms}, {300ms}, {"200 open"}},
                         {"its second half alone", {}, {0ms}, {}},
                         {"a click within a click's time", {0ms, 100ms}, {}, {"200 open"}},
                         {"two clicks", {0ms, 250ms}, {}, {"200 open", "450 open"}},
                         {"four clicks in a row", {0ms, 200ms}, {100ms, 300ms}, {"100 form"}}};
  for (const Case& c : kCases) {
    Start(kActionVisit, kActionOptions);
    for (const auto time : c.down) LeftDownIn(time);
    for (const auto time : c.doubled) DoubleClickIn(time);
    host_.RunFor(1min);
    EXPECT_THAT(Effects(), ElementsAreArray(c.effects)) << c.what;
    host_.Kill();
  }
}

TEST_F(ClickTest, NoActionStillTakesItsTime) {
  Start(kActionNone, kActionOptions);
  LeftDownIn(0ms);
  DoubleClickIn(250ms);
  host_.RunFor(1min);
  EXPECT_THAT(Effects(), IsEmpty()) << "the second half came when the click was over";
}

// The action is a refresh of 10 seconds, in which events go on.
TEST_F(ClickTest, ALongActionRunsOnceForItsClick) {
  struct Case {
    const char* what;
    std::vector<std::chrono::milliseconds> down, doubled;
    std::vector<std::string> effects;
  };
  const Case kCases[] = {
      {"left alone", {0ms}, {}, {"200 agent"}},
      {"a slow double click", {0ms}, {300ms}, {"200 agent"}},
      {"clicks meanwhile", {0ms, 1s, 5s, 9900ms}, {}, {"200 agent"}},
      {"a double click meanwhile", {0ms, 5s}, {5100ms}, {"200 agent", "5100 form"}},
      {"a click afterwards", {0ms, 11s}, {}, {"200 agent", "11200 agent"}}};
  for (const Case& c : kCases) {
    Start(kActionRefresh, kActionOptions);
    for (const auto time : c.down) LeftDownIn(time);
    for (const auto time : c.doubled) DoubleClickIn(time);
    host_.RunFor(1min);
    EXPECT_THAT(Effects(), ElementsAreArray(c.effects)) << c.what;
    host_.Kill();
  }
}

TEST_F(ClickTest, ARefreshThatRunsIsLeftAlone) {
  Start(kActionRefresh, kActionOptions);
  LeftDownIn(2s);
  host_.Choose("RefreshNow");
  host_.RunFor(1min);
  EXPECT_THAT(Effects(), ElementsAreArray({"0 agent"}));
}

}  // namespace
}  // namespace quillbox
