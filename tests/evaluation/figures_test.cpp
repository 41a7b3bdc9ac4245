#include "evaluation/figures.h"

#include <gtest/gtest.h>

#include "evaluation/report_row.h"
#include "test_region.h"
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

TEST(FiguresOf, RatesFollowTheRegion) {
  const AccountStats stats = FiguresOf(
      Rows("d 1000 10 1% 1 2,00", "d 1000 5 1% 1 1.000,50", "d 0 0 0 0 0 0"), Region("de-DE"));
  EXPECT_EQ(stats.Ctr, "0,75%");
  EXPECT_EQ(stats.Earnings, "1002,5");
  EXPECT_EQ(stats.Ecpm, "$501,25");
}

}  // namespace
}  // namespace quillbox
