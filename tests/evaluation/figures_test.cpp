// The figures of an account, and what is foretold of them.
#include <gtest/gtest.h>

#include "evaluation/account_stats.h"
#include "evaluation/figures.h"
#include "evaluation/report_row.h"
#include "region/test_region.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

// Rows from texts with their cells, already normalised, between blanks.
std::vector<ReportRow> Rows(const std::string& content, const std::string& search,
                            const std::string& referral) {
  return {ReportRow(Cells(SplitText(content, " ")), kContentLayout),
          ReportRow(Cells(SplitText(search, " ")), kSearchLayout),
          ReportRow(Cells(SplitText(referral, " ")), kReferralLayout)};
}

constexpr const char* kContent = "1/1/2007 1000 10 1.00% 2.00 2.00 T 3000 30 1% 2.00 6.00";
constexpr const char* kSearch = "1/2/2007 500 5 1.00% 4.00 2.00 T 1000 5 1% 1.00 1.25";
constexpr const char* kReferral = "1/3/2007 0 0 0.00% 0 0.00 0.00 T 1000 5 1% 2 0.25 0.25";

TEST(FiguresOf, OneReportIsTakenAsItIs) {
  const auto rows = Rows(kContent, kSearch, kReferral);
  EXPECT_EQ(StoredRecord(FiguresOf(std::span(rows).subspan(2), Region("en-US"))),
            "|||1/3/2007|||0|||0|||0.00%|||0.00|||0.00||||||1000|||5|||1%|||0.25|||0.25");
  EXPECT_EQ(StoredRecord(FiguresOf({}, Region("en-US"))), StoredRecord({}));
}

TEST(FiguresOf, AFailingStepLeavesItsOwnFieldEmpty) {
  struct Case {
    const char *fault, *content, *referral;
    const char* record;
  };
  const Case kCases[] = {
      {"no impressions: no rates", "d 0 10 1% 2.00 2.00 T 0 30 1% 2.00 6.00",
       "d 0 0 0% 0 0.00 0.00 T 0 5 1% 2 0.25 0.25",
       "|||d|||500|||15|||3.0%|||$8.0|||4||||||1000|||40|||4.0%|||$7.5|||7.5"},
      {"counts read their head alone", "d 1,000 1.5x 1% 2.00 2.00 T x 30 1% 2.00 6.00", kReferral,
       "|||d|||501|||6.5|||1.3%|||$7.98|||4||||||2000|||40|||2.0%|||$3.75|||7.5"},
      {"a refused day amount adds 0", "d 1000 10 1% 2.00 x T 3000 30 1% 2.00 6.00", kReferral,
       "|||d|||1500|||15|||1.0%|||$1.33|||2||||||5000|||40|||0.8%|||$1.5|||7.5"},
      {"a refused month amount takes the day's", "d 1000 10 1% 2.00 2.00 T 3000 30 1% 2.00 x",
       kReferral, "|||d|||1500|||15|||1.0%|||$2.67|||4||||||5000|||40|||0.8%|||$0.7|||3.5"},
      {"cells that are not there", "d 1000", kReferral,
       "|||d|||1500|||||||||$1.33|||2||||||||||||||||||1.5"},
      {"amounts beyond 64 bits", "d 1000 10 1% 2.00 922337203685477.5807 T 3000 30 1% 2.00 6.00",
       kReferral, "|||d|||1500|||15|||1.0%||||||||||||5000|||40|||0.8%|||$1.5|||7.5"}};
  for (const Case& c : kCases) {
    const AccountStats stats = FiguresOf(Rows(c.content, kSearch, c.referral), Region("en-US"));
    EXPECT_EQ(StoredRecord(stats), c.record) << c.fault;
  }
}

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
