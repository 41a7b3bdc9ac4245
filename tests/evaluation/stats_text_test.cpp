// The figures as texts, and where they are shown.
#include "evaluation/stats_text.h"

#include <gmock/gmock.h>

#include "evaluation/tray_stats.h"
#include "region/test_region.h"
#include "simulated/context_on_state.h"

namespace quillbox {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kYear = 2007;
constexpr const char* kAllLetters = "ABCDEFHIJKLMG";
const std::string kFirst =
    "9:05 AM|||1/30/2007|||1000|||15|||1.5%|||$2.00|||3.00|||$4.00|||30000|||450|||1.25%|||2|||90";
const std::string kSecond =
    "9:06 AM|||1/31/2007|||500|||3|||0.6%|||$3.00|||1.50|||$0.50|||9000|||50|||0.5%|||1|||10.5";

TEST(OneAccountStatsText, ShowsWhatIsSelectedAndThere) {
  struct Case {
    const char *region, *values;
    std::string record;
    const char* text;
  };
  const Case kCases[] = {
      {"en-US", "", kFirst, ""},
      {"en-US", "g", kFirst, "Downloaded: 9:05 AM"},
      {"en-US", "Ga", kFirst, "Date: 1/30/2007\r\nDownloaded: 9:05 AM"},
      {"en-US", "A", kFirst, "Date: 1/30/2007"},
      {"en-US", kAllLetters, "", ""},
      {"en-US", "AG", "9:05||||||1000", "Downloaded: 9:05"},
      {"en-US", "CG", "9:05", "Downloaded: 9:05"},
      {"en-US", "DEFH", "t|||d|||1|||1|||||||||x|||N/A", "CTR: "},
      {"en-US", "H", "t|||d|||1|||1|||1|||1|||1|||0", "Predicted Earnings: N/A"},
      {"en-US", "H", "t|||d|||1|||1|||1|||1|||1|||$0.00", "Predicted Earnings: $0.00"},
      {"en-US", "H", "t|||d|||1|||1|||1|||1|||1", ""},
      {"en-US", "EF", "t|||d|||1|||1|||1|||-1.5|||($1,234.5)",
       "eCPM: $1.50\r\nEarnings: $1,234.50"},
      {"de-DE", "ABE", "t|||1/31/2007|||1234567|||1|||1|||1.234,5 \200",
       "Date: 31.01.2007\r\nImpressions: 1.234.567\r\neCPM: $1.234,50"},
      {"de-DE", "E", "t|||d|||1|||1|||1|||$1.0", ""},
      {"de-CH", "BC", "t|||d|||-1234567|||1499.5", "Impressions: -1'234'567\r\nClicks: 1'500"},
      {"fr-FR", "F", "t|||d|||1|||1|||1|||1|||1234,5", "Earnings: $1234,50"},
      {"de-CH", "F", "t|||d|||1|||1|||1|||1|||1234.5", "Earnings: $1234.50"}};
  for (const Case& c : kCases) {
    EXPECT_EQ(OneAccountStatsText(c.values, c.record, kYear, Region(c.region)), c.text)
        << c.region << " " << c.values << " " << c.record;
  }
}

TEST(AllAccountsStatsText, SumsAndMeans) {
  const std::vector<std::string> records = {kFirst, kSecond};
  EXPECT_EQ(AllAccountsStatsText("HIJKLM", records, kYear, Region("en-US")),
            "Predicted Earnings: $4.50\r\nMonth Impressions: 39,000\r\nMonth Clicks: 500\r\n"
            "Month CTR: 0.875%\r\nMonth eCPM: $1.50\r\nMonth Earnings: $100.50");
}

TEST(AllAccountsStatsText, WhatIsMissingAddsNothing) {
  struct Case {
    const char* values;
    std::vector<std::string> records;
    const char* text;
  };
  const Case kCases[] = {
      {"ABDEG", {kSecond, ""}, "Impressions: 500\r\nCTR: 0.3%\r\neCPM: $1.50"},
      {"ADG", {"", kSecond}, "Date: 1/31/2007\r\nCTR: 0.3%\r\nDownloaded: 9:06 AM"},
      {"ABDFHG",
       {"", ""},
       "Impressions: 0\r\nCTR: 0%\r\nEarnings: $0.00\r\nPredicted Earnings: N/A"},
      {"BDEF", {}, "Impressions: 0\r\nEarnings: $0.00"},
      {"D", {kFirst, kSecond, "t|||d|||1|||1|||0.3%"}, "CTR: 0.8%"},
      {"D", {"t|||d|||1|||1|||1%", "", ""}, "CTR: 0.333333333333333%"},
      {"B", {"t|||d|||2000000000", "t|||d|||2000000000"}, "Impressions: 2,000,000,000"},
      {"BC", {"t|||d|||x|||2", "t|||d|||3.5|||N/A"}, "Impressions: 4\r\nClicks: 2"}};
  for (const Case& c : kCases) {
    EXPECT_EQ(AllAccountsStatsText(c.values, c.records, kYear, Region("en-US")), c.text)
        << c.values << " of " << c.records.size();
  }
}

TEST(StatsPopupItems, AreThereForAWholeRecordAlone) {
  EXPECT_THAT(StatsPopupItems("t|||no date|||1|||x|||||||||||||||||||||||||||", Region("en-US")),
              ElementsAre("no date", "Impressions: 1", "CTR: ", "Month CTR: ", "Downloaded: t"));
  const std::string twelve = kFirst.substr(0, kFirst.rfind("|||"));
  for (const std::string& record : {std::string(), twelve, kFirst + "|||14"}) {
    EXPECT_THAT(StatsPopupItems(record, Region("en-US")), IsEmpty()) << record;
  }
}

TEST(InsertStatsPopups, InReverseOrderBelowTheFirst) {
  const std::vector<std::string> accounts = {"one", "two", "three"};
  const std::vector<std::string> records = {kFirst, "", kSecond};
  Menu menu;
  InsertStatsPopups(menu, accounts, records, Region("en-US"));
  ASSERT_EQ(menu.size(), 3u);
  EXPECT_EQ(menu[0].Caption + menu[1].Caption + menu[2].Caption, "onethreetwo");
  EXPECT_TRUE(menu[2].Submenu);
  EXPECT_THAT(menu[2].Items, IsEmpty());
  ASSERT_EQ(menu[1].Items.size(), 13u);
  EXPECT_EQ(menu[1].Items[0].Command, 1);
  EXPECT_TRUE(menu[1].Items[0].Enabled);
}

struct TrayStats : ContextOnState {
  TrayStats() { host_.Store.Put("Accounts", "one", "9:05 AM|||1/30|||1000"); }
  void ShowAll(const char* text) { host_.Store.Put("TrayTooltip", "DisplayAllStats", text); }
};

TEST_F(TrayStats, AreOfThePrimaryAccountForAnEmptyNameAndOfAllWhenAllAreDisplayed) {
  struct Case {
    const char *displayAll, *primary, *account, *text;
  };
  const Case kCases[] = {{"", "", "", ""},
                         {"", "one", "", "Impressions: 1,000"},
                         {"", "one", "two", "Impressions: 500"},
                         {"true", "one", "two", "Impressions: 500"},
                         {"True", "", "two", "Impressions: 1,500"},
                         {"True", "", "of no account", "Impressions: 1,500"}};
  host_.Store.Put("Accounts", "two", "9:06 AM|||1/31/2007|||500");
  host_.Store.Put("TrayTooltip", "Values", "B");
  for (const Case& c : kCases) {
    ShowAll(c.displayAll);
    host_.Store.Put("AdSense", "PrimaryAccount", c.primary);
    std::string account = c.account;
    EXPECT_EQ(BuildStatsText({store_, state_.Accounts, region_, {}}, account), c.text)
        << c.displayAll << " " << c.account;
    EXPECT_EQ(account, *c.account == '\0' ? c.primary : c.account) << c.account;
  }
}

TEST_F(TrayStats, TheTooltipChangesOnlyForAStoredRecord) {
  ShowAll("True");
  UpdateTrayStats(program_, "two");
  EXPECT_THAT(host_.Trace(), IsEmpty());
  UpdateTrayStats(program_, "one");
  EXPECT_THAT(host_.Trace({"tip"}), ElementsAre("tip"));
  EXPECT_EQ(state_.TooltipText, "");
}

}  // namespace
}  // namespace quillbox
