// Single and double clicks on the tray icon.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "simulated/used_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAreArray;

// A refresh takes 10 seconds, in which events go on; a double click opens the Options.
class ClickTest : public testing::Test {
 protected:
  ClickTest() {
    program_.Set(kTrayAction, kActionOptions);
    host_.Agents.Always(Answers("1", 10s));
  }

  void Start(std::string_view single) {
    program_.Set(kTraySingleAction, single);
    program_.StartQuietly();
    begin_ = host_.Time.Now();
  }

  // What the clicks brought about in a minute, each with its milliseconds.
  std::vector<std::string> Effects() {
    host_.RunFor(1min);
    std::vector<std::string> effects;
    for (const TraceEntry& entry : host_.Effects.Entries()) {
      const bool begins = entry.What == "agent" && entry.Text.starts_with("start");
      if (!begins && entry.What != "form" && entry.What != "open") continue;
      effects.push_back(std::to_string((entry.At - begin_).count()) + " " + entry.What);
    }
    return effects;
  }

  UsedProgram program_;
  SimulatedHost& host_ = program_.Host;
  TimePoint begin_{0};
};

TEST_F(ClickTest, TwoHundredMillisecondsTellSingleFromDouble) {
  struct Case {
    const char* what;
    std::string_view single;
    std::vector<std::chrono::milliseconds> down, doubled;
    std::vector<std::string> effects;
  };
  const Case kCases[] = {
      {"a click", kActionVisit, {0ms}, {}, {"200 open"}},
      {"a double click", kActionVisit, {0ms}, {120ms}, {"120 form"}},
      {"at the last moment", kActionVisit, {0ms}, {199ms}, {"199 form"}},
      {"a slow double click", kActionVisit, {0ms}, {300ms}, {"200 open"}},
      {"its second half alone", kActionVisit, {}, {0ms}, {}},
      {"a click within a click's time", kActionVisit, {0ms, 100ms}, {}, {"200 open"}},
      {"two clicks", kActionVisit, {0ms, 250ms}, {}, {"200 open", "450 open"}},
      {"four clicks in a row", kActionVisit, {0ms, 200ms}, {100ms, 300ms}, {"100 form"}},
      {"no action still takes its time", kActionNone, {0ms}, {250ms}, {}},
      {"a slow one with a refresh", kActionRefresh, {0ms}, {300ms}, {"200 agent"}},
      {"clicks in a refresh", kActionRefresh, {0ms, 1s, 5s, 9900ms}, {}, {"200 agent"}},
      {"a double one in it", kActionRefresh, {0ms, 5s}, {5100ms}, {"200 agent", "5100 form"}},
      {"a click after it", kActionRefresh, {0ms, 11s}, {}, {"200 agent", "11200 agent"}}};
  for (const Case& c : kCases) {
    Start(c.single);
    for (const auto time : c.down) host_.After(time, [this] { host_.LeftDown(); });
    for (const auto time : c.doubled) host_.After(time, [this] { host_.DoubleClick(); });
    EXPECT_THAT(Effects(), ElementsAreArray(c.effects)) << c.what;
    host_.Kill();
  }
}

// What the texts of the two tray actions do.
TEST(TrayAction, DoesWhatItsTextSays) {
  struct Case {
    std::string_view action;
    std::vector<std::string> effects;
  };
  const Case kCases[] = {
      {"No Action", {}},
      {"Open primary AdSense account",
       {"open https://adsense.example.test/accounts/ServiceLoginAuth?..."}},
      {"Open Quillbox Options", {"form Opts"}},
      {"Refresh tooltip information", {"agent start 1 Content.dat", "agent write 1 Content.log"}},
      {"Visit Tarnwick Works", {"open https://quillbox.example.test"}},
      {"open quillbox options", {}},
      {"Visit", {}},
  };
  for (const Case& c : kCases) {
    for (const bool doubled : {false, true}) {
      UsedProgram program;
      program.Set(kPrimaryAccount, "one");
      program.Set(doubled ? kTrayAction : kTraySingleAction, c.action);
      program.Start();
      program.Host.LeftDown();
      if (doubled) program.Host.DoubleClick();
      program.Host.RunFor(1min);
      EXPECT_THAT(program.Host.Trace({"form", "open", "agent", "box"}), ElementsAreArray(c.effects))
          << c.action << (doubled ? ", twice" : ", once");
    }
  }
}

}  // namespace
}  // namespace quillbox
