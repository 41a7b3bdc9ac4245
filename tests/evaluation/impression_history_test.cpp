#include "evaluation/impression_history.h"

#include <gtest/gtest.h>

#include "evaluation/account_stats.h"
#include "test_region.h"

namespace quillbox {
namespace {

TEST(RolledOver, AFallOfTheImpressionsIsANewDay) {
  struct Case {
    const char *history, *record, *fresh;
    const char* rolled;
  };
  const Case kCases[] = {{"", "t|||d|||1000", "5", "1000"},
                         {"7|||8", "t|||d|||1000", "5", "1000|||7|||8"},
                         {"7", "t|||d|||1000", "1000", "7"},
                         {"7", "t|||d|||1,000", "999.5", "7"},  // rounded to 1000
                         {"7", "", "5", "7"},                   // nothing stored
                         {"7", "t|||d", "5", "7"},
                         {"7", "t|||d|||1000", "", "1000|||7"},  // the test fails, so it is true
                         {"7", "t|||d|||x", "5", "x|||7"},
                         {"7", "t|||d|||", "5", "|||7"}};
  for (const Case& c : kCases) {
    EXPECT_EQ(RolledOver(c.history, StoredFields(c.record), c.fresh, Region("en-US")), c.rolled)
        << c.history << " / " << c.record << " / " << c.fresh;
  }
}

TEST(AverageOf, TakesTheFirstSevenDays) {
  struct Case {
    const char *history, *kept;
    std::int32_t daily;
  };
  const Case kCases[] = {
      {"", "", 0},
      {"1000", "1000", 1000},
      {"1|||2", "1|||2", 2},  // 1.5 to the even 2
      {"2|||3", "2|||3", 2},  // 2.5 to the even 2
      {"1|||2|||3|||4|||5|||6|||7|||800", "1|||2|||3|||4|||5|||6|||7", 4},
      {"10|||x|||20", "10|||x|||20", 10},         // what can't be converted counts as a day
      {"0.5|||0.5|||0.5", "0.5|||0.5|||0.5", 0},  // rounded at every entry
      {"1.5|||0.5", "1.5|||0.5", 1},
      {"|||8", "|||8", 4},
      {"2147483647|||1", "2147483647|||1", 1073741824},  // the overflow adds nothing
  };
  for (const Case& c : kCases) {
    const ImpressionAverage average = AverageOf(c.history, Region("en-US"));
    EXPECT_EQ(average.History, c.kept) << c.history;
    EXPECT_EQ(average.Daily, c.daily) << c.history;
  }
}

TEST(PredictEarnings, IsTheAverageDaysEarnings) {
  EXPECT_EQ(PredictEarnings("$2.0", 1000, Region("en-US")), "$2.00");
  EXPECT_EQ(PredictEarnings("2.67", 1500, Region("en-US")), "$4.01");
  EXPECT_EQ(PredictEarnings("2,5", 0, Region("de-DE")), "0,00 \200");
  EXPECT_THROW(PredictEarnings("$2,0", 1000, Region("de-DE")), StepFailed);
  EXPECT_THROW(PredictEarnings("", 1000, Region("en-US")), StepFailed);
  RegionalSettings bare;
  bare.PositiveCurrency = "$.";
  EXPECT_EQ(PredictEarnings("1", 1000, bare), "N/A");
}

}  // namespace
}  // namespace quillbox
