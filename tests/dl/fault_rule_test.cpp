// The failures of the demo service, as they are written and for whom they hold.
#include "faults/fault_rule.h"

#include <gtest/gtest.h>

#include "faults/fault_switch.h"

namespace quillbox {
namespace {

TEST(FaultRule, ModesAndTargets) {
  struct Case {
    const char* text;
    Fault kind;
    int status;
    const char* target;
  };
  const Case kCases[] = {{"none", Fault::kNone, 0, ""},
                         {"refuse:a@b", Fault::kRefuse, 0, "a@b"},
                         {"error", Fault::kStatus, 500, ""},
                         {"404:/adsense", Fault::kStatus, 404, "/adsense"},
                         {"untrusted", Fault::kUntrusted, 0, ""}};
  for (const Case& c : kCases) {
    const auto rule = ParseFaultRule(c.text);
    ASSERT_TRUE(rule) << c.text;
    EXPECT_EQ(rule->Kind, c.kind) << c.text;
    EXPECT_EQ(rule->Status, c.status) << c.text;
    EXPECT_EQ(rule->Target, c.target) << c.text;
  }
  for (const char* text : {"", "explode", "200", "600", "404x", "untrusted:/adsense", ":x"}) {
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
  faults.Set({});
  EXPECT_EQ(faults.For("/adsense/report/aggregate", "a@b").Kind, Fault::kNone);
  EXPECT_EQ(faults.ForConnections(), Fault::kNone);
}

}  // namespace
}  // namespace quillbox
