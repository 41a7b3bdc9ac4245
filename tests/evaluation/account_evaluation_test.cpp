// What is decided of an account's reports, and how it is carried out.
#include <gmock/gmock.h>

#include "evaluation/account_evaluation.h"
#include "region/test_region.h"
#include "simulated/context_on_state.h"

namespace quillbox {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

// A report of a heading, one day and two summary lines.
std::string ContentReport(const std::string& date, const std::string& impressions,
                          const std::string& clicks = "10", const std::string& ctr = "1.00%",
                          const std::string& ecpm = "2.00", const std::string& earnings = "2.00") {
  return "Date\tImpressions\tClicks\n" + date + '\t' + impressions + '\t' + clicks + '\t' + ctr +
         '\t' + ecpm + '\t' + earnings + "\nTotals\t3000\t30\t1.00%\t2.00\t6.00\nAverages\t1\t2\n";
}

EvaluationInput ContentInput(std::string report) {
  EvaluationInput input;
  input.DataToDownload = "AdSense for Content";
  input.Content = std::move(report);
  input.Now = std::chrono::local_days(std::chrono::year(2007) / 1 / 31) + std::chrono::hours(9) +
              std::chrono::minutes(5);
  return input;
}

TEST(EvaluateReports, MissingReportsCountAsNothing) {
  for (const char* none : {"all", "Both", ""})
    EXPECT_FALSE(Selects(none, kDownloadContent)) << none;
  EvaluationInput input = ContentInput(ContentReport("1/31/2007", "1000"));
  input.DataToDownload = "All";
  input.Referral =
      "Date\n1/31/2007\t0\t0\t0.00%\t0\t0.00\t0.00\n"
      "Totals\t1000\t5\t0.50%\t2\t0.25\t0.25\nAverages\n";
  const AccountStats merged = EvaluateReports(input, Region("de-DE")).Stats;
  EXPECT_EQ(merged.ReportDate, "1/31/2007");
  EXPECT_EQ(merged.Impressions, "1000");
  EXPECT_EQ(merged.Ecpm, "$2,0");
  EXPECT_EQ(merged.PredictedEarnings, "") << "a text in dollars is no number there";
  input.DataToDownload = "Referrals";
  input.Referral.reset();
  EXPECT_EQ(StoredRecord(EvaluateReports(input, Region("de-DE")).Stats),
            "9:05 AM|||31.01.2007|||0|||0|||0|||0|||0|||0,00 \200|||0|||0|||0||||||");
}

// Account "one", the primary one, with a report of the day.
struct Evaluation : ContextOnState {
  Evaluation() {
    host_.Tray.Apply(TrayOperation::kAdd, {});
    state_.SoundFiles = {"imp.wav", "clk.wav", "(None)", "cpm.wav", "(None)", "any.wav"};
    store_.WriteSetting(kPrimaryAccount, "one");
    store_.WriteSetting(kDataToDownload, "AdSense for Content");
    store_.WriteSetting(kTooltipValues, "BG");
    store_.WriteSetting(kShowBalloonWhen, "Clicks Changes");
    host_.Files.Put("/c", ContentReport("1/31/2007", "1000"));
  }
  // What it did to the host.
  std::vector<std::string> Run(const std::string& account = "one") {
    host_.Effects.Clear();
    EvaluateAccountReports(program_, {"/c", "/s", "/r"}, account);
    return host_.Trace({"store", "tip", "balloon", "sound"});
  }
};

const auto kHistory = StartsWith("store Accounts/one Impressions=");
const auto kRecord = StartsWith("store Accounts/one=9:05 AM|||");
const auto kLastDateStored = StartsWith("store Misc/LastDate=");
constexpr const char* kTip = "tip Impressions: 1,000\r\nDownloaded: 9:05 AM";

TEST_F(Evaluation, CarriesTheDecisionOutInOrder) {
  EXPECT_THAT(
      Run(),
      ElementsAre("store Accounts/one Impressions=",
                  "store Accounts/one=9:05 AM|||1/31/2007|||1000|||10|||1.00%|||2.00|||2.00|||"
                  "$0.00|||3000|||30|||1.00%|||2.00|||6.00",
                  kTip, "balloon Quillbox: Impressions: 1,000\r\nDownloaded: 9:05 AM",
                  "sound imp.wav", "sound clk.wav", "sound cpm.wav", "sound any.wav",
                  "store Misc/LastDate=1/31/2007"));
}

TEST_F(Evaluation, BehindAShutGateOnlyTheHistoryIsStored) {
  Run();
  host_.Files.Put("/c", ContentReport("1/31/2007", "900", "10", "9%", "9.00", "9.00"));
  EXPECT_THAT(Run(), ElementsAre("store Accounts/one Impressions=1000"));
}

TEST_F(Evaluation, WithoutAChangeTheRecordIsStoredAndTheDateStaysOld) {
  host_.Files.Put("/c", ContentReport("1/30/2007", "1000", "0", "0%", "0", "0"));
  Run();
  host_.Files.Put("/c", ContentReport("1/31/2007", "1000", "0", "0%", "0", "0"));
  EXPECT_THAT(Run(), ElementsAre(kHistory, kRecord, kTip));
  EXPECT_THAT(Run(), ElementsAre(kHistory, kRecord, kTip)) << "so it is new again";
}

TEST_F(Evaluation, ABalloonComesForTheChosenFigureAlone) {
  Run();
  host_.Files.Put("/c", ContentReport("1/31/2007", "1001"));
  EXPECT_THAT(Run(), ElementsAre(kHistory, kRecord, StartsWith("tip Impressions: 1,001"),
                                 "sound imp.wav", "sound any.wav", kLastDateStored));
}

TEST_F(Evaluation, ASecondaryAccountOnlySounds) {
  EXPECT_THAT(Run("ONE"),
              ElementsAre(StartsWith("store Accounts/ONE Imp"), StartsWith("store Accounts/ONE="),
                          "sound imp.wav", "sound clk.wav", "sound cpm.wav", "sound any.wav",
                          kLastDateStored));
  state_.SoundFiles.fill("(None)");
  EXPECT_THAT(Run("two").back(), kLastDateStored) << "silence still writes the date";
}

}  // namespace
}  // namespace quillbox
