#include "evaluation/evaluate_account_reports.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sample_reports.h"
#include "test_program.h"

namespace quillbox {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Evaluation : testing::Test {
  Evaluation() {
    Program.State.Accounts = {"one"};
    Program.State.SoundFiles = {"imp.wav", "clk.wav", "(None)", "cpm.wav", "(None)", "any.wav"};
    Program.Setting("AdSense/PrimaryAccount") = "one";
    Program.Setting("TrayTooltip/DataToDownload") = "AdSense for Content";
    Program.Setting("TrayTooltip/Values") = "BG";
    Program.Setting("TrayIcon/ShowBalloonWhen") = "Clicks Changes";
    Program.Disk.Contents["/c"] = ContentReport("1/31/2007", "1000");
  }
  // What it did to the host.
  const Trace& Run(const std::string& account = "one") {
    Program.Did.clear();
    EvaluateAccountReports(Program.Context, "/c", "/s", "/r", account);
    return Program.Did;
  }
  TestProgram Program;
};

constexpr const char* kStoreBoth = "store Accounts/one Impressions Accounts/one";
constexpr const char* kTooltip = "tooltip Impressions: 1,000\r\nDownloaded: 12:00 AM";
constexpr const char* kBalloon = "balloon Impressions: 1,000\r\nDownloaded: 12:00 AM";

TEST_F(Evaluation, CarriesTheDecisionOutInOrder) {
  EXPECT_THAT(Run(), ElementsAre(kStoreBoth, kTooltip, kBalloon, "sound imp.wav", "sound clk.wav",
                                 "sound cpm.wav", "sound any.wav", "store Misc/LastDate"));
  EXPECT_EQ(Program.Setting("Misc/LastDate"), "1/31/2007");
  EXPECT_EQ(Program.Setting("Accounts/one"),
            "12:00 AM|||1/31/2007|||1000|||10|||1.00%|||2.00|||2.00|||$0.00|||3000|||30|||1.00%"
            "|||2.00|||6.00");
  EXPECT_THAT(Program.Disk.WasRead, ElementsAre("/c"));
}

TEST_F(Evaluation, BehindAShutGateOnlyTheHistoryIsStored) {
  Run();
  Program.Disk.Contents["/c"] = ContentReport("1/31/2007", "900", "10", "9%", "9.00", "9.00");
  EXPECT_THAT(Run(), ElementsAre("store Accounts/one Impressions"));
  EXPECT_EQ(Program.Setting("Accounts/one Impressions"), "1000");
}

TEST_F(Evaluation, WithoutAChangeTheRecordIsStoredAndTheDateStaysOld) {
  Program.Disk.Contents["/c"] = ContentReport("1/30/2007", "1000", "0", "0%", "0", "0");
  Run();
  Program.Disk.Contents["/c"] = ContentReport("1/31/2007", "1000", "0", "0%", "0", "0");
  EXPECT_THAT(Run(), ElementsAre(kStoreBoth, kTooltip));
  EXPECT_EQ(Program.Setting("Misc/LastDate"), "1/30/2007");
}

TEST_F(Evaluation, ABalloonComesForTheChosenFigureAlone) {
  Run();
  Program.Disk.Contents["/c"] = ContentReport("1/31/2007", "1001");
  EXPECT_THAT(Run(), ElementsAre(kStoreBoth, "tooltip Impressions: 1,001\r\nDownloaded: 12:00 AM",
                                 "sound imp.wav", "sound any.wav", "store Misc/LastDate"));
}

TEST_F(Evaluation, ASecondaryAccountOnlySounds) {
  EXPECT_THAT(Run("ONE"), ElementsAre("store Accounts/ONE Impressions Accounts/ONE",
                                      "sound imp.wav", "sound clk.wav", "sound cpm.wav",
                                      "sound any.wav", "store Misc/LastDate"));
}

TEST_F(Evaluation, SilenceStillWritesTheDate) {
  Program.State.SoundFiles.fill("(None)");
  Program.Setting("AdSense/PrimaryAccount") = "";
  EXPECT_THAT(Run(), ElementsAre(kStoreBoth, "store Misc/LastDate"));
}

TEST_F(Evaluation, ReadsTheSelectedReportsAlone) {
  struct Case {
    const char* setting;
    std::set<std::string> read;
  };
  const Case kCases[] = {{"All", {"/c", "/s", "/r"}},
                         {"AdSense for Search", {"/s"}},
                         {"Referrals", {"/r"}},
                         {"Both", {}},
                         {"", {}}};
  for (const Case& c : kCases) {
    Program.Setting("TrayTooltip/DataToDownload") = c.setting;
    Program.Disk.WasRead.clear();
    Run();
    EXPECT_EQ(Program.Disk.WasRead, c.read) << c.setting;
  }
}

TEST_F(Evaluation, NoReportSelectedStillRunsThrough) {
  Program.Setting("TrayTooltip/DataToDownload") = "Both";
  Program.Setting("TrayIcon/ShowBalloonWhen") = "Never";
  Program.State.SoundFiles.fill("(None)");
  EXPECT_THAT(Run(),
              ElementsAre(kStoreBoth, "tooltip Downloaded: 12:00 AM", "store Misc/LastDate"));
  EXPECT_EQ(Program.Setting("Accounts/one"), "12:00 AM||||||||||||||||||||||||||||||||||||");
}

}  // namespace
}  // namespace quillbox
