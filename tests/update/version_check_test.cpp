// Asking for a new version, by hand and by itself: every ending, and one check at a time.
#include <gmock/gmock.h>

#include <optional>
#include <string>

#include "simulated/used_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* kFailed =
    "The attempt to check for an updated version of Quillbox failed!\r\n\r\n"
    "Visit https://quillbox.example.test to check for a new version.";
constexpr const char* kCurrent = "You are using the latest version of Quillbox.";
constexpr const char* kOffer =
    "Quillbox v1.3.1 is available!  Would you like to download the setup now?";

AgentBehaviour Publishes(std::optional<std::string> text) {
  AgentBehaviour agent = ForFile("che.wt", Answers("0"));
  agent.Data = std::move(text);
  return agent;
}

TEST(VersionCheck, EveryEndingInBothWaysOfAsking) {
  struct Case {
    const char* what;
    std::optional<std::string> published;
    const char* announced;
    const char *asked, *unasked;  // the boxes; empty for none
    const char* announcedAfter;
  };
  const Case kCases[] = {
      {"nothing came", {}, "", kFailed, "", ""},
      {"an error page", std::string(21, '9'), "", kFailed, "", ""},
      {"as long as can be", std::string(20, '1'), "", kCurrent, "", ""},
      {"an empty file", "", "", kCurrent, "", ""},
      {"the same", "1.3.0\r\n", "", kCurrent, "", ""},
      {"older", "1.3", "", kCurrent, "", ""},
      {"order of texts, not numbers", "1.10.0", "", kCurrent, "", ""},
      {"new", "1.3.1\r\n", "", kOffer, kOffer, "1.3.1\r\n"},
      {"new, blanks", "  1.3.1 ", "1.3.0", kOffer, kOffer, "1.3.1"},
      {"told before", "1.3.1\r\n", "1.3.1\r\n", kOffer, "", "1.3.1\r\n"},
      {"told before, another line end", "1.3.1\r\n", "1.3.1", kOffer, kOffer, "1.3.1\r\n"},
  };
  for (const Case& c : kCases) {
    for (const bool asked : {true, false}) {
      const std::string row = std::string(c.what) + (asked ? ", asked" : ", by itself");
      UsedProgram program;
      program.Set(kCheckVersion, c.announced);
      program.Set(kCheckForNewVersion, asked ? kFalse : kTrue);
      program.Host.Agents.Always(Publishes(c.published));
      program.Start();
      if (asked) program.Host.Choose("CheckForNewVersion");
      ASSERT_EQ(program.Host.Agents.Starts().size(), 1U) << row;
      EXPECT_EQ(program.Host.Agents.Starts()[0].Text,
                "https://quillbox.example.test/versionqb.txt|/app/che.wt|/app/chet.wt");
      const std::string box = asked ? c.asked : c.unasked;
      const auto& shown = program.Host.Boxes.Shown();
      ASSERT_EQ(shown.size(), box.empty() ? 0U : 1U) << row;
      if (!box.empty()) {
        EXPECT_EQ(shown[0].Text, box) << row;
        EXPECT_EQ(shown[0].Title, "Quillbox") << row;
        const BoxIcon icon = box == kFailed ? BoxIcon::kExclamation : BoxIcon::kInformation;
        EXPECT_EQ(shown[0].Icon, icon) << row;
        EXPECT_TRUE(shown[0].InForeground) << row;
        EXPECT_EQ(shown[0].Buttons, box == kOffer ? BoxButtons::kYesNo : BoxButtons::kOk) << row;
      }
      EXPECT_EQ(program.Setting(kCheckVersion), c.announcedAfter) << row;
      const bool filesStay = c.asked == kFailed;
      EXPECT_EQ(program.Host.Files.Exists("/app/chet.wt"), filesStay) << row;
      EXPECT_EQ(program.Host.Files.Exists("/app/che.wt"), filesStay && c.published) << row;
      EXPECT_THAT(program.Host.Opener.Opened(), IsEmpty()) << row;
    }
  }
}

TEST(VersionCheck, YesLeadsToTheSetupAndTheVersionIsNotedBefore) {
  UsedProgram program;
  program.Host.Agents.Always(Publishes("1.3.1"));
  program.Host.Boxes.Add({.Part = "available", .Answer = BoxAnswer::kYes});
  program.StartQuietly();
  program.Host.Choose("CheckForNewVersion");
  EXPECT_THAT(program.Host.Trace({"store", "box", "answer", "open"}),
              ElementsAre("store Misc/CheckVersion=1.3.1", std::string("box ") + kOffer,
                          "answer Yes", "open https://quillbox.example.test/AboutQuillbox.asp"));
}

TEST(VersionCheck, WhatAnEarlierCheckLeftIsTakenAsItIs) {
  UsedProgram program;
  SimulatedHost& host = program.Host;
  host.Files.Put("/app/che.wt", "1.4.0");
  host.Files.Put("/app/chet.wt", "0");
  host.Agents.Always(Publishes("1.5.0"));
  program.StartQuietly();
  host.Choose("CheckForNewVersion");
  ASSERT_EQ(host.Boxes.Shown().size(), 1U);
  EXPECT_THAT(host.Boxes.Shown()[0].Text, HasSubstr("v1.4.0 "));
  EXPECT_FALSE(host.Files.Exists("/app/che.wt"));
  host.RunFor(1s);
  EXPECT_TRUE(host.Files.Exists("/app/che.wt")) << "the agent of that check came later";
  host.Agents.Always(Publishes("1.6.0"));
  host.Choose("CheckForNewVersion");
  EXPECT_THAT(host.Boxes.Shown()[1].Text, HasSubstr("v1.5.0 "));
}

// A settings file cuts the value at its line end, and knows no installed version.
TEST(VersionCheckInFileMode, AnAnsweredQuestionDoesNotComeBackEveryDay) {
  for (const char* end : {"", "\r\n", "\n", " \r\n"}) {
    SimulatedProgram program;
    program.Host.Store.SetKeeps(StoreKeeps::kNothing);
    const auto questionsOnNextDay = [&](const char* published) {
      if (program.Host.Runs()) program.Host.Kill();
      program.Host.RunFor(24h);
      program.Host.Agents.Always(Publishes(published + std::string(end)));
      program.Host.Effects.Clear();
      program.Start();
      EXPECT_EQ(program.Host.Trace({"agent"}).size(), 3U) << "the check was made";
      int questions = 0;
      for (const std::string& box : program.Host.Trace({"box"})) {
        questions += box.find("is available") == std::string::npos ? 0 : 1;
      }
      return questions;
    };
    EXPECT_EQ(questionsOnNextDay("1.3.1"), 1) << end;
    EXPECT_EQ(questionsOnNextDay("1.3.1"), 0) << end;
    EXPECT_EQ(questionsOnNextDay("1.3.2"), 1) << end;
    EXPECT_EQ(questionsOnNextDay("1.3.2"), 0) << end;
  }
}

TEST(VersionCheck, EndsWithTheLogOrWithTheAgentOrAfterTwoMinutes) {
  AgentBehaviour answers = Answers("0", 5s);
  answers.Data = "1.3.0";
  answers.EmptyLogAfter = 1s;
  AgentBehaviour silent;
  silent.Data = "1.3.1";
  struct Case {
    const char* what;
    AgentBehaviour agent;
    std::chrono::milliseconds time;
    const char* box;
  };
  const Case kCases[] = {{"a log that fills", answers, 5s, "latest version"},
                         {"silence", silent, 120s, "failed!"},
                         {"an agent that ended", DiesAfter(2s), 2s, "failed!"},
                         {"no agent", NeverStarts(), 0s, "failed!"}};
  for (const Case& c : kCases) {
    UsedProgram program;
    program.Host.Agents.Always(c.agent);
    program.Start();
    const TimePoint asked = program.Host.Time.Now();
    program.Host.Choose("CheckForNewVersion");
    EXPECT_GE(program.Host.Time.Now() - asked, c.time) << c.what;
    EXPECT_LT(program.Host.Time.Now() - asked, c.time + 10ms) << c.what;
    ASSERT_THAT(program.Host.Boxes.Shown(), SizeIs(1)) << c.what;
    EXPECT_THAT(program.Host.Boxes.Shown()[0].Text, HasSubstr(c.box)) << c.what;
    EXPECT_EQ(program.Host.Agents.RunningCount(), 0U) << c.what;
  }
}

TEST(VersionCheck, ASecondOneIsSkippedWhileOneWaitsOrAsks) {
  UsedProgram program;
  const auto ask = [&program] { program.Host.Choose("CheckForNewVersion"); };
  AgentBehaviour agent = Answers("0", 10s);
  agent.Data = "1.3.1";
  program.Host.Agents.Always(agent);
  program.StartQuietly();
  program.Host.After(3s, ask);
  program.Host.Boxes.Add({.Part = "available", .WhileOpen = ask});
  ask();
  EXPECT_THAT(program.Host.Agents.Starts(), SizeIs(1));
  EXPECT_THAT(program.Host.Boxes.Shown(), SizeIs(1));
  ask();
  EXPECT_THAT(program.Host.Agents.Starts(), SizeIs(2)) << "the next one is free again";
}

TEST(VersionCheck, WhoAsksDuringAnAutomaticOneIsToldWhatItFinds) {
  UsedProgram program;
  AgentBehaviour agent = Answers("0", 10s);
  agent.Data = "1.3.0";
  program.Host.Agents.Always(agent);
  program.Set(kCheckForNewVersion, kTrue);
  program.Host.After(3s, [&program] { program.Host.Choose("CheckForNewVersion"); });
  program.Start();
  EXPECT_THAT(program.Host.Agents.Starts(), SizeIs(1));
  ASSERT_THAT(program.Host.Boxes.Shown(), SizeIs(1));
  EXPECT_EQ(program.Host.Boxes.Shown()[0].Text, kCurrent);
}

}  // namespace
}  // namespace quillbox
