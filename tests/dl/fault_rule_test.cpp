// The failures of the demo service, as they are written and for whom they hold.
#include "faults/fault_rule.h"

#include <gtest/gtest.h>

#include "faults/fault_switch.h"

namespace quillbox {
namespace {

// The tests of the result codes go through the rules themselves.
TEST(FaultRule, IsRefusedWhenItMakesNoSense) {
  for (const char* text : {"", "explode", "200", "600", "404x", "untrusted:/adsense", ":x",
                           "stall*", "stall*0", "untrusted*2"}) {
    EXPECT_FALSE(ParseFaultRule(text)) << text;
  }
}

TEST(FaultSwitch, TheLastRuleThatAppliesHolds) {
  FaultSwitch faults;
  faults.Set({Fault::kStall, 0, "/adsense"});
  faults.Set({Fault::kCut, 0, "/adsense/report/referrals"});
  faults.Set({Fault::kRefuse, 0, "a@b"});
  faults.Set({Fault::kWrongName, 0, ""});
  EXPECT_EQ(faults.For("/adsense/report/aggregate", "c@d").Kind, Fault::kStall);
  EXPECT_EQ(faults.For("/adsense/report/referrals", "c@d").Kind, Fault::kCut);
  EXPECT_EQ(faults.For("/adsense/report/referrals", "a@b").Kind, Fault::kRefuse);
  EXPECT_EQ(faults.For("/versionqb.txt", "").Kind, Fault::kNone);
  EXPECT_EQ(faults.ForConnections(), Fault::kWrongName);
  faults.Set({Fault::kStatus, 503, "/versionqb", 2});
  EXPECT_EQ(faults.For("/versionqb.txt", "").Status, 503);
  EXPECT_EQ(faults.For("/versionqb.txt", "").Status, 503);
  EXPECT_EQ(faults.For("/versionqb.txt", "").Kind, Fault::kNone) << "it has met its two requests";
  faults.Set({});
  EXPECT_EQ(faults.For("/adsense/report/aggregate", "a@b").Kind, Fault::kNone);
  EXPECT_EQ(faults.ForConnections(), Fault::kNone);
}

}  // namespace
}  // namespace quillbox
