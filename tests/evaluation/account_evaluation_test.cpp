#include "evaluation/account_evaluation.h"

#include <gtest/gtest.h>

#include "sample_reports.h"
#include "test_region.h"

namespace quillbox {
namespace {

// One account whose reports come day after day, as the store would keep it.
struct AccountLife {
  EvaluationInput Input = ContentInput("");
  EvaluationDecision See(std::string report) {
    Input.Content = std::move(report);
    const EvaluationDecision decision = EvaluateReports(Input, Region("en-US"));
    Input.StoredHistory = decision.History;
    if (decision.GatePassed) Input.StoredStats = StoredRecord(decision.Stats);
    if (!decision.Changes.Empty()) Input.LastDate = decision.Stats.ReportDate;
    return decision;
  }
};

TEST(EvaluateReports, TheFirstEvaluationIsAllChange) {
  EvaluationInput input = AllInput();
  input.LastDate = "1/31/2007";
  input.ShowBalloonWhen = "Effective CPM Changes";
  const EvaluationDecision decision = EvaluateReports(input, Region("en-US"));
  EXPECT_EQ(StoredRecord(decision.Stats),
            "9:05 AM|||1/31/2007|||1500|||15|||1.0%|||$2.67|||4|||$0.00|||5000|||40|||0.8%|||$1.5"
            "|||7.5");
  EXPECT_EQ(decision.History, "");
  EXPECT_TRUE(decision.GatePassed);
  for (std::size_t i = 0; i < kFigures; ++i) {
    EXPECT_TRUE(decision.Changes.Has(static_cast<Figure>(i))) << i;
  }
  EXPECT_TRUE(decision.BalloonWanted);
}

TEST(EvaluateReports, MissingReportsCountAsNothing) {
  EvaluationInput input = AllInput();
  input.Search.reset();
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

TEST(EvaluateReports, ADayGoesByAndTheNextBegins) {
  AccountLife life;
  life.See(ContentReport("1/30/2007", "1000"));
  EXPECT_FALSE(life.See(ContentReport("1/30/2007", "1000", "10", "1%", "9.00", "9.00")).GatePassed);
  EXPECT_TRUE(life.See(ContentReport("1/30/2007", "1200")).Changes.Has(Figure::kImpressions));

  const EvaluationDecision next =
      life.See(ContentReport("1/31/2007", "5", "0", "0%", "2.0", "0.00"));
  EXPECT_EQ(next.History, "1200");
  EXPECT_EQ(next.Stats.PredictedEarnings, "$2.40");
  EXPECT_TRUE(next.Changes.Has(Figure::kImpressions));
  EXPECT_FALSE(next.Changes.Has(Figure::kClicks));
  EXPECT_EQ(life.Input.LastDate, "1/31/2007");
}

TEST(EvaluateReports, TheHistoryKeepsSevenDaysAndRepeatsBehindAShutGate) {
  AccountLife life;
  for (int day = 1; day <= 9; ++day) {
    life.See(ContentReport("1/" + std::to_string(day) + "/2007", std::to_string(1000 - day)));
  }
  EXPECT_EQ(life.Input.StoredHistory, "992|||993|||994|||995|||996|||997|||998");
  for (int round = 0; round < 2; ++round) {
    EXPECT_FALSE(life.See(ContentReport("1/9/2007", "3")).GatePassed);
  }
  EXPECT_EQ(life.Input.StoredHistory, "991|||991|||992|||993|||994|||995|||996");
}

TEST(EvaluateReports, ASecondAccountSeesTheSameDate) {
  AccountLife first, second;
  first.See(ContentReport("1/30/2007", "1000"));
  second.See(ContentReport("1/30/2007", "1000"));
  first.See(ContentReport("1/31/2007", "5"));
  second.Input.LastDate = first.Input.LastDate;
  EXPECT_FALSE(second.See(ContentReport("1/31/2007", "5")).GatePassed);
  EXPECT_TRUE(second.See(ContentReport("1/31/2007", "1001")).GatePassed);
}

TEST(EvaluateReports, AnErrorPageRunsThrough) {
  AccountLife life;
  life.See(ContentReport("1/30/2007", "1000"));
  const EvaluationDecision decision = life.See("<html><body>Service unavailable</body></html>");
  EXPECT_TRUE(decision.GatePassed);
  EXPECT_EQ(decision.Stats.ReportDate, "<html><body>Service unavailable</body></html>");
  EXPECT_EQ(decision.History, "1000");
}

}  // namespace
}  // namespace quillbox
