#include "evaluation/account_stats.h"

#include <array>

#include "text/text_list.h"

namespace quillbox {

std::string StoredRecord(const AccountStats& stats) {
  const std::array<std::string, stats_field::kCount> fields = {stats.LastUpdated,
                                                               stats.ReportDate,
                                                               stats.Impressions,
                                                               stats.Clicks,
                                                               stats.Ctr,
                                                               stats.Ecpm,
                                                               stats.Earnings,
                                                               stats.PredictedEarnings,
                                                               stats.MonthImpressions,
                                                               stats.MonthClicks,
                                                               stats.MonthCtr,
                                                               stats.MonthEcpm,
                                                               stats.MonthEarnings};
  return JoinText(fields, kListSeparator);
}

Cells StoredFields(std::string_view record) {
  return Cells(SplitText(record, kListSeparator));
}

}  // namespace quillbox
