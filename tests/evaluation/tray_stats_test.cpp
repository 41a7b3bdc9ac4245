#include "evaluation/tray_stats.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "test_program.h"
#include "tray/tray_menu.h"

namespace quillbox {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct TrayStats : testing::Test {
  TrayStats() {
    Program.State.Accounts = {"one", "two"};
    Program.Setting("Accounts/one") = "9:05 AM|||1/30|||1000";
    Program.Setting("TrayTooltip/Values") = "ABG";
  }
  std::string Text(std::string account) { return BuildStatsText(Program.Context, account); }

  TestProgram Program;
};

TEST_F(TrayStats, AnEmptyNameBecomesThePrimaryAccounts) {
  std::string account;
  EXPECT_EQ(BuildStatsText(Program.Context, account), "");
  EXPECT_EQ(account, "");
  Program.Setting("AdSense/PrimaryAccount") = "one";
  EXPECT_EQ(BuildStatsText(Program.Context, account),
            "Date: 1/30/2007\r\nImpressions: 1,000\r\nDownloaded: 9:05 AM");
  EXPECT_EQ(account, "one");
}

TEST_F(TrayStats, DisplayAllStatsIsExactlyTrue) {
  Program.Setting("Accounts/two") = "9:06 AM|||1/31/2007|||500";
  Program.Setting("TrayTooltip/Values") = "B";
  EXPECT_EQ(Text("two"), "Impressions: 500");
  Program.Setting("TrayTooltip/DisplayAllStats") = "true";
  EXPECT_EQ(Text("two"), "Impressions: 500");
  Program.Setting("TrayTooltip/DisplayAllStats") = "True";
  EXPECT_EQ(Text("two"), "Impressions: 1,500");
  EXPECT_EQ(Text("of no account"), "Impressions: 1,500");
}

TEST_F(TrayStats, TheTooltipChangesOnlyForAStoredRecord) {
  Program.Setting("TrayTooltip/DisplayAllStats") = "True";
  UpdateTrayStats(Program.Context, "two");
  EXPECT_THAT(Program.Did, IsEmpty());
  Program.Setting("TrayTooltip/Values") = "";
  UpdateTrayStats(Program.Context, "one");
  EXPECT_THAT(Program.Did, ElementsAre("tooltip "));
  EXPECT_EQ(Program.State.TooltipText, "");
}

TEST_F(TrayStats, PopupsGoIntoTheAccountsMenu) {
  BuildTraySubmenus(Program.Context);
  BuildAccountStatsMenus(Program.Context);
  const Menu& menu = AccountsMenu(Program.State);
  ASSERT_EQ(menu.size(), 2u);
  EXPECT_EQ(menu[0].Caption, "one");
  EXPECT_THAT(menu[0].Items, IsEmpty());  // three fields are no whole record
}

}  // namespace
}  // namespace quillbox
