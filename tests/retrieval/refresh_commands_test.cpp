// The agent's command texts, to the letter: they are a contract with another program.
#include "retrieval/refresh_commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "retrieval/sign_in_address.h"

namespace quillbox {
namespace {

const ApplicationFolder kFolder("/my app", "/my app", '/');

TEST(RefreshCommands, AreWhatTheAgentExpects) {
  struct Case {
    Report report;
    const char *byPage, *command;
  };
  const Case kCases[] = {
      {Report::kContent, "Page",
       "Email=%61%2E%62&Passwd=%2B%%#%https://h.test/adsense/report/aggregate?product=afc"
       "&dateRange.dateRangeType=simple&dateRange.simpleDate=thismonth&reportType=property"
       "&groupByPref=date&outputFormat=TSV_EXCEL&unitPref=page"
       "|/my app/Content.dat|/my app/Content.log"},
      {Report::kContent, "",
       "Email=%61%2E%62&Passwd=%2B%%#%https://h.test/adsense/report/aggregate?product=afc"
       "&dateRange.dateRangeType=simple&dateRange.simpleDate=thismonth&reportType=property"
       "&groupByPref=date&outputFormat=TSV_EXCEL&unitPref=adunit"
       "|/my app/Content.dat|/my app/Content.log"},
      {Report::kSearch, "Page",
       "Email=%61%2E%62&Passwd=%2B%%#%https://h.test/adsense/report/aggregate?product=afs"
       "&dateRange.dateRangeType=simple&dateRange.simpleDate=thismonth&reportType=property"
       "&groupByPref=date&outputFormat=TSV_EXCEL"
       "|/my app/Search.dat|/my app/Search.log"},
      {Report::kReferral, "Page",
       "Email=%61%2E%62&Passwd=%2B%%#%https://h.test/adsense/report/referrals?product=ref"
       "&dateRange.dateRangeType=simple&dateRange.simpleDate=thismonth&reportType=property"
       "&groupByPref=date&outputFormat=TSV_EXCEL"
       "|/my app/Referral.dat|/my app/Referral.log"},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(RefreshCommand(c.report, c.byPage, "a.b", "+%", "h.test", kFolder), c.command);
  }
}

}  // namespace
}  // namespace quillbox
