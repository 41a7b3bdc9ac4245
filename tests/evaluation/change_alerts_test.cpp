#include "evaluation/change_alerts.h"

#include <gtest/gtest.h>

#include "region/test_region.h"

namespace quillbox {
namespace {

constexpr const char* kToday = "1/31/2007";
constexpr const char* kYesterday = "1/30/2007";

AccountStats Fresh(std::string impressions, std::string clicks, std::string ctr, std::string ecpm,
                   std::string earnings) {
  AccountStats stats;
  stats.ReportDate = kToday;
  stats.Impressions = std::move(impressions);
  stats.Clicks = std::move(clicks);
  stats.Ctr = std::move(ctr);
  stats.Ecpm = std::move(ecpm);
  stats.Earnings = std::move(earnings);
  return stats;
}

// "ICREN" letters of the changed figures: impressions, clicks, rate, eCPM, earnings.
std::string Letters(const ChangeSet& changes) {
  std::string letters;
  for (std::size_t i = 0; i < kFigures; ++i) {
    if (changes.Has(static_cast<Figure>(i))) letters += "ICRPE"[i];
  }
  return letters;
}

constexpr const char* kStored = "t|||1/30/2007|||1000|||10|||1.00%|||$2.00|||2.00|||0";

TEST(GatePasses, OnNewsAlone) {
  struct Case {
    const char *lastDate, *record;
    AccountStats fresh;
    bool passes;
  };
  const Case kCases[] = {{kToday, kStored, Fresh("1000", "10", "9%", "9", "9"), false},
                         {kToday, kStored, Fresh("1,000", "10.4", "", "", ""), false},
                         {kToday, kStored, Fresh("999", "9", "", "", ""), false},
                         {kToday, kStored, Fresh("1001", "0", "", "", ""), true},
                         {kToday, kStored, Fresh("0", "11", "", "", ""), true},
                         {kYesterday, kStored, Fresh("0", "0", "", "", ""), true},
                         {"1/31/2007 ", kStored, Fresh("0", "0", "", "", ""), true},
                         {kToday, "", Fresh("0", "0", "", "", ""), true},
                         {kToday, "t|||d|||1000", Fresh("0", "0", "", "", ""), true},
                         {kToday, kStored, Fresh("x", "0", "", "", ""), true},
                         {kToday, kStored, Fresh("0", "", "", "", ""), true}};
  for (const Case& c : kCases) {
    EXPECT_EQ(GatePasses(c.fresh, StoredFields(c.record), c.lastDate, Region("en-US")), c.passes)
        << c.lastDate << " " << c.record << " " << c.fresh.Impressions << " " << c.fresh.Clicks;
  }
}

TEST(FindChanges, ComparesByValue) {
  struct Case {
    const char *lastDate, *record;
    AccountStats fresh;
    const char* changed;
  };
  const Case kCases[] = {
      // The same date: what rose.
      {kToday, kStored, Fresh("1000", "10", "1%", "2.0", "$2"), ""},
      {kToday, kStored, Fresh("1001", "11", "1.01%", "2.0001", "2.01"), "ICRPE"},
      {kToday, kStored, Fresh("1001", "10", "0.99%", "2.00", "2.01"), "IE"},
      {kToday, kStored, Fresh("999", "9", "0%", "1", "1"), ""},
      // A new date: impressions that differ, all else above 0.
      {kYesterday, kStored, Fresh("1000", "0", "0%", "0", "0"), ""},
      {kYesterday, kStored, Fresh("999", "0", "0.0%", "$0.00", "0.00"), "I"},
      {kYesterday, kStored, Fresh("1000", "1", "0.01%", "0.01", "0.01"), "CRPE"},
      {kYesterday, kStored, Fresh("1000", "-1", "-1%", "-1", "-1"), ""},
      // Tests that fail count as true, each alone.
      {kToday, kStored, Fresh("", "0", "0%", "0", "0"), "I"},
      {kToday, kStored, Fresh("0", "x", "0%", "0", "0"), "C"},
      {kToday, kStored, Fresh("0", "0", "", "0", "0"), "R"},
      {kYesterday, kStored, Fresh("1000", "0", "0%", "", "0"), "P"},
      {kYesterday, kStored, Fresh("1000", "0", "0%", "0", "1\r"), "E"},
      // What is stored must be there on either date, but be a number on the same date alone.
      {kToday, "", Fresh("0", "0", "0%", "0", "0"), "ICRPE"},
      {kYesterday, "", Fresh("0", "0", "0%", "0", "0"), "ICRPE"},
      {kYesterday, "t|||d|||0|||0|||0", Fresh("0", "0", "0%", "0", "0"), "PE"},
      {kYesterday, "t|||d|||0|||x|||x|||x|||x", Fresh("0", "0", "0%", "0", "0"), ""},
      {kYesterday, "t|||d|||x|||0|||0|||0|||0", Fresh("0", "0", "0%", "0", "0"), "I"},
      {kToday, "t|||d|||0|||x|||x|||x|||x", Fresh("0", "0", "0%", "0", "0"), "CRPE"}};
  for (const Case& c : kCases) {
    const ChangeSet changes =
        FindChanges(c.fresh, StoredFields(c.record), c.lastDate, Region("en-US"));
    EXPECT_EQ(Letters(changes), c.changed)
        << c.lastDate << " " << c.record << " " << StoredRecord(c.fresh);
  }
}

TEST(FindChanges, RatesAreComparedExactly) {
  const AccountStats fresh = Fresh("0", "0", "%0.10000000000000000001%", "0", "0");
  const Cells stored = StoredFields("t|||d|||0|||0|||0.1|||0|||0");
  EXPECT_TRUE(FindChanges(fresh, stored, kToday, Region("en-US")).Has(Figure::kRate));
}

TEST(BalloonNamed, GoesByTheExactText) {
  const char* const kNames[] = {"Page Impressions Changes",
                                "Clicks Changes",
                                "Clickthrough Rate Changes",
                                "Effective CPM Changes",
                                "Your Earnings Changes",
                                "clicks changes",
                                "Never",
                                ""};
  for (std::size_t figure = 0; figure < kFigures; ++figure) {
    ChangeSet one;
    one.Add(static_cast<Figure>(figure));
    for (std::size_t i = 0; i < std::size(kNames); ++i) {
      EXPECT_EQ(BalloonNamed(kNames[i], one), i == figure) << kNames[i] << " for " << figure;
    }
  }
}

}  // namespace
}  // namespace quillbox
