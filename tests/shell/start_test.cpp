// The start sequence.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "simulated/used_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::StartsWith;

constexpr const char* kGreeting =
    "box Greetings!  It looks like this is your first time using Quillbox.\r\n\r\n"
    "Would you like to set up the Options now?";
constexpr const char* kVersionPrompt =
    "box Quillbox is not currently set to automatically alert you\r\n"
    "when new releases are available.\r\n\r\n"
    "Would you like to enable this feature now?";

TEST(Start, TheFirstOneGreetsAfterEverythingElse) {
  SimulatedProgram program;
  program.Set(kRefreshTooltip, kTrue);
  program.Host.Boxes.Add({.Part = "Greetings", .Answer = BoxAnswer::kYes});
  program.Start();
  std::vector<std::string> trace =
      program.Host.Trace({"store", "tray", "tip", "agent", "box", "answer"});
  trace.resize(14);  // what comes then is of the Options
  EXPECT_THAT(
      trace,
      ElementsAre("store Misc/Version=1.3.0", "store Misc/RegTest=Test", "tip Quillbox", "tray add",
                  "store General/CheckForNewVersion=True", "store General/CheckPrompted=True",
                  StartsWith("box You must complete the \"AdSense Account\" section"), "answer OK",
                  "store Misc/CheckDate=1/31/2007", "agent start 1 che.wt", "agent write 1 chet.wt",
                  "store Misc/Runs=1", kGreeting, "answer Yes"));
  EXPECT_NE(program.Host.Windows.Opts(), nullptr);
  const Message& greeting = program.Host.Boxes.Shown()[1];
  EXPECT_EQ(greeting.Title, "Quillbox");
  EXPECT_EQ(greeting.Icon, BoxIcon::kInformation);
  EXPECT_EQ(greeting.Buttons, BoxButtons::kYesNo);
  EXPECT_TRUE(greeting.InForeground);
}

TEST(Start, AsksOnceForVersionChecks) {
  struct Case {
    const char *check, *prompted;
    BoxAnswer answer;
    bool asks;
    const char *checkAfter, *promptedAfter;
  };
  const Case kCases[] = {
      {"", "", BoxAnswer::kYes, false, "True", "True"},
      {"False", "", BoxAnswer::kYes, true, "True", "True"},
      {"False", "", BoxAnswer::kNo, true, "False", "True"},
      {"False", "True", BoxAnswer::kYes, false, "False", "True"},
      {"True", "", BoxAnswer::kYes, false, "True", ""},
      {"false", "", BoxAnswer::kYes, false, "false", ""},
  };
  for (const Case& c : kCases) {
    UsedProgram program;
    program.Set(kCheckForNewVersion, c.check);
    program.Set(kCheckPrompted, c.prompted);
    program.Host.Boxes.Add({.Answer = c.answer});
    program.Start();
    const std::string row = std::string(c.check) + "/" + c.prompted;
    std::vector<std::string> boxes;
    if (c.asks) boxes.push_back(kVersionPrompt);
    EXPECT_THAT(program.Host.Trace({"box"}), ElementsAreArray(boxes)) << row;
    EXPECT_EQ(program.Setting(kCheckForNewVersion), c.checkAfter) << row;
    EXPECT_EQ(program.Setting(kCheckPrompted), c.promptedAfter) << row;
  }
}

// What is fetched in an hour, each with its second.
std::vector<std::string> Fetched(SimulatedHost& host) {
  host.RunFor(1h);
  std::vector<std::string> fetched;
  for (const TraceEntry& entry : host.Effects.Entries()) {
    if (entry.What != "agent" || !entry.Text.starts_with("start")) continue;
    const std::string file = entry.Text.substr(entry.Text.rfind(' ') + 1);
    fetched.push_back(std::to_string(entry.At / 1s) + " " + file);
  }
  return fetched;
}

TEST(Start, RefreshesAndChecksAtOnceOrAfterThePause) {
  struct Case {
    const char *pause, *refresh, *check, *checkDate;
    std::vector<std::string> fetched;
    const char* checkDateAfter;
  };
  const Case kCases[] = {
      {"", "", "False", "", {}, ""},
      {"", "True", "False", "", {"0 Content.dat"}, ""},
      {"", "", "True", "", {"0 che.wt"}, "1/31/2007"},
      {"", "True", "True", "1/30/2007", {"0 Content.dat", "0 che.wt"}, "1/31/2007"},
      {"", "", "True", "1/31/2007", {}, "1/31/2007"},
      {"", "true", "true", "", {}, ""},
      {"True", "", "False", "", {}, ""},
      {"True", "True", "False", "", {"30 Content.dat"}, ""},
      {"True", "", "True", "1/31/2007", {"30 che.wt"}, "1/31/2007"},
      {"True", "True", "True", "", {"30 Content.dat", "30 che.wt"}, ""},
      {"yes", "True", "False", "", {"0 Content.dat"}, ""},
  };
  for (const Case& c : kCases) {
    UsedProgram program;
    program.Set(kPause, c.pause);
    program.Set(kRefreshTooltip, c.refresh);
    program.Set(kCheckForNewVersion, c.check);
    program.Set(kCheckDate, c.checkDate);
    program.Start();
    const std::string row =
        std::string(c.pause) + "/" + c.refresh + "/" + c.check + "/" + c.checkDate;
    EXPECT_EQ(Fetched(program.Host), c.fetched) << row;
    EXPECT_EQ(program.Setting(kCheckDate), c.checkDateAfter) << row;
  }
}

TEST(Start, TakesThePictureThatThereIs) {
  struct Case {
    const char *what, *icon;
    bool exists, isPicture;
    const char* shown;
  };
  const Case kCases[] = {{"none chosen", "", false, true, ""},
                         {"a picture", "/pictures/a.ico", true, true, "/pictures/a.ico"},
                         {"deleted", "/pictures/a.ico", false, true, ""},
                         {"not a picture", "/pictures/a.ico", true, false, ""}};
  for (const Case& c : kCases) {
    UsedProgram program;
    program.Set(kTrayIcon, c.icon);
    if (c.exists) program.Host.Files.Put(c.icon, "picture");
    if (!c.isPicture) program.Host.Tray.RefusePicture(c.icon);
    program.Start();
    EXPECT_EQ(program.Host.Tray.Record().hIcon, c.shown) << c.what;
    EXPECT_EQ(program.Setting(kTrayIcon), c.icon) << c.what;
  }
}

TEST(Start, FillsTheWholeTrayRecord) {
  UsedProgram program;
  program.Start();
  const TrayIconRecord& record = program.Host.Tray.Record();
  EXPECT_EQ(record.cbSize, 488U);
  EXPECT_EQ(record.uID, 1U);
  EXPECT_EQ(record.uFlags, 23U);
  EXPECT_EQ(record.uCallbackMessage, 512U);
  EXPECT_EQ(record.uTimeout, 30000U);
  EXPECT_EQ(record.szTip.Text(), "");
  EXPECT_TRUE(program.Host.Tray.HasIcon());
}

TEST(Start, LoadsTheStateWithItsDefaults) {
  UsedProgram program;
  program.AddAccount("two", "bob", "z");
  program.Set(kSounds[1], "click.wav");
  program.Set(kShowBalloonWhen, kBalloonClicks);
  program.Set(kProxyServer, "proxy");
  program.Set(kProxyPort, "8080");
  program.Start();
  const AppState& state = program.State();
  EXPECT_THAT(state.Accounts, ElementsAre("one", "two"));
  EXPECT_THAT(state.Usernames, ElementsAre("ann", "bob"));
  EXPECT_THAT(state.Passwords, ElementsAre("x", "z"));
  EXPECT_EQ(state.ProxyServer + ":" + state.ProxyPort, "proxy:8080");
  EXPECT_EQ(state.TrayAction, "Open Quillbox Options");
  EXPECT_EQ(state.TraySingleAction, "No Action");
  EXPECT_EQ(state.ShowBalloonWhen, "Clicks Changes");
  EXPECT_THAT(state.SoundFiles,
              ElementsAre("(None)", "click.wav", "(None)", "(None)", "(None)", "(None)"));
  EXPECT_EQ(program.Setting(kTrayAction), "") << "defaults are not written back";
}

TEST(Start, ThePrimaryAccountsStoredFiguresComeIntoTheTooltip) {
  UsedProgram program;
  program.FetchFigures();
  program.Start();
  const std::string figures = program.State().TooltipText;
  EXPECT_THAT(figures, testing::HasSubstr("100"));
  program.Host.Choose("Exit");
  program.Set(kRefreshTooltip, kFalse);
  program.Start();
  EXPECT_EQ(program.State().TooltipText, figures);
}

// Also when the refresh before has nothing to wait for.
TEST(Start, FillsTheSubmenusOnce) {
  for (const auto download : {std::string_view(), kDownloadContent}) {
    UsedProgram program;
    program.AddAccount("two", "bob", "z");
    program.Host.Agents.Always(Answers("1"));
    program.Set(kRefreshTooltip, kTrue);
    program.Set(kDataToDownload, std::string(download));
    program.StartQuietly();
    EXPECT_THAT(program.State().TrayMenu[3].Items, testing::SizeIs(2)) << download;
  }
}

TEST(Start, CountsItself) {
  struct Case {
    const char *stored, *afterwards;
  };
  const Case kCases[] = {{"1", "2"},         {"32766", "32767"}, {"32767", "32767"},
                         {"40000", "40000"}, {"-3", "-2"},       {"-32769", "-32769"},
                         {"many", "many"},   {"1x", "1x"},       {"9", "10"}};
  for (const Case& c : kCases) {
    UsedProgram program;
    program.Set(kRuns, c.stored);
    program.Start();
    EXPECT_EQ(program.Setting(kRuns), c.afterwards) << c.stored;
    EXPECT_TRUE(program.Host.Boxes.Shown().empty()) << c.stored;
  }
}

}  // namespace
}  // namespace quillbox
