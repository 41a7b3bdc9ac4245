// Asking for a new version, by hand and by itself.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "simulated/simulated_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kFailed =
    "The attempt to check for an updated version of Quillbox failed!\r\n\r\n"
    "Visit https://quillbox.example.test to check for a new version.";
constexpr const char* kCurrent = "You are using the latest version of Quillbox.";
constexpr const char* kOffer =
    "Quillbox v1.3.1 is available!  Would you like to download the setup now?";

AgentBehaviour Publishes(std::optional<std::string> text) {
  AgentBehaviour agent;
  agent.DataFile = "che.wt";
  agent.Data = std::move(text);
  agent.Log = "0";
  return agent;
}

class VersionCheckTest : public testing::Test {
 protected:
  VersionCheckTest() { program_.UsedBefore(); }

  // Starts the program, which does not ask by itself.
  void Start() {
    program_.Start();
    host_.Effects.Clear();
  }
  void Ask() { host_.Choose("CheckForNewVersion"); }
  bool Left(const char* file) { return host_.Files.Exists(SimulatedProgram::PathOf(file)); }

  SimulatedProgram program_;
  SimulatedHost& host_ = program_.Host;
};

TEST_F(VersionCheckTest, AsksTheAgentForThePublishedFile) {
  Start();
  Ask();
  ASSERT_EQ(host_.Agents.Starts().size(), 1U);
  EXPECT_EQ(host_.Agents.Starts()[0].Text,
            "https://quillbox.example.test/versionqb.txt|/app/che.wt|/app/chet.wt");
}

TEST_F(VersionCheckTest, EveryEndingInBothWaysOfAsking) {
  struct Case {
    const char* what;
    std::optional<std::string> published;
    const char* announced;
    const char *asked, *unasked;  // the boxes; empty for none
    BoxIcon icon;
    const char* announcedAfter;
    bool filesStay;
  };
  const Case kCases[] = {
      {"nothing came", {}, "", kFailed, "", BoxIcon::kExclamation, "", true},
      {"an error page", std::string(21, 'x'), "", kFailed, "", BoxIcon::kExclamation, "", true},
      {"the same", "1.3.0\r\n", "", kCurrent, "", BoxIcon::kInformation, "", false},
      {"new", "1.3.1\r\n", "", kOffer, kOffer, BoxIcon::kInformation, "1.3.1\r\n", false},
      {"new, blanks", "  1.3.1 ", "1.3.0", kOffer, kOffer, BoxIcon::kInformation, "1.3.1", false},
      {"told before", "1.3.1\r\n", "1.3.1\r\n", kOffer, "", BoxIcon::kInformation, "1.3.1\r\n",
       false},
  };
  for (const Case& c : kCases) {
    for (const bool asked : {true, false}) {
      const std::string row = std::string(c.what) + (asked ? ", asked" : ", by itself");
      SimulatedProgram program;
      program.UsedBefore();
      program.Set(kCheckVersion, c.announced);
      program.Set(kCheckForNewVersion, asked ? kFalse : kTrue);
      program.Host.Agents.Always(Publishes(c.published));
      program.Start();
      if (asked) program.Host.Choose("CheckForNewVersion");
      const std::string box = asked ? c.asked : c.unasked;
      const auto& shown = program.Host.Boxes.Shown();
      ASSERT_EQ(shown.size(), box.empty() ? 0U : 1U) << row;
      if (!box.empty()) {
        EXPECT_EQ(shown[0].Text, box) << row;
        EXPECT_EQ(shown[0].Title, "Quillbox") << row;
        EXPECT_EQ(shown[0].Icon, c.icon) << row;
        EXPECT_TRUE(shown[0].InForeground) << row;
        const bool isQuestion = box == kOffer;
        EXPECT_EQ(shown[0].Buttons, isQuestion ? BoxButtons::kYesNo : BoxButtons::kOk) << row;
      }
      EXPECT_EQ(program.Setting(kCheckVersion), c.announcedAfter) << row;
      EXPECT_EQ(program.Host.Files.Exists("/app/chet.wt"), c.filesStay) << row;
      EXPECT_EQ(program.Host.Files.Exists("/app/che.wt"), c.filesStay && c.published) << row;
      EXPECT_THAT(program.Host.Opener.Opened(), IsEmpty()) << row;
    }
  }
}

TEST_F(VersionCheckTest, YesLeadsToTheSetupAndTheVersionIsNotedBefore) {
  host_.Agents.Always(Publishes("1.3.1"));
  host_.Boxes.Add({.Part = "available", .Answer = BoxAnswer::kYes});
  Start();
  Ask();
  EXPECT_THAT(host_.Trace({"store", "box", "answer", "open"}),
              ElementsAre("store Misc/CheckVersion=1.3.1", std::string("box ") + kOffer,
                          "answer Yes", "open https://quillbox.example.test/AboutQuillbox.asp"));
}

TEST_F(VersionCheckTest, WhatAnEarlierCheckLeftIsTakenAsItIs) {
  host_.Files.Put("/app/che.wt", "1.4.0");
  host_.Files.Put("/app/chet.wt", "0");
  host_.Agents.Always(Publishes("1.5.0"));
  Start();
  Ask();
  ASSERT_EQ(host_.Boxes.Shown().size(), 1U);
  EXPECT_THAT(host_.Boxes.Shown()[0].Text, testing::HasSubstr("v1.4.0 "));
  EXPECT_FALSE(Left("che.wt"));
  host_.RunFor(1s);
  EXPECT_TRUE(Left("che.wt")) << "the agent of that check came later";
  host_.Agents.Always(Publishes("1.6.0"));
  Ask();
  EXPECT_THAT(host_.Boxes.Shown()[1].Text, testing::HasSubstr("v1.5.0 "));
}

}  // namespace
}  // namespace quillbox
