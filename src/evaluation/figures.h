// The figures of the latest day and of the month, from the rows of the selected reports; and the
// history of daily impressions, from which the day's earnings are predicted.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "evaluation/account_stats.h"
#include "evaluation/report_row.h"
#include "region/regional_settings.h"

namespace quillbox {

// Sets ReportDate and the figures of day and month but the predicted earnings. One row's cells are
// taken as they are; three rows (content, search, referral) are merged. A figure that can't be
// worked out is empty.
AccountStats FiguresOf(std::span<const ReportRow> rows, const RegionalSettings& region);

// The history with the stored impressions in front of it, if the fresh ones are below them: a new
// day. The comparison counts as true when it fails; without stored impressions nothing is added.
std::string RolledOver(std::string history, const Cells& stored, std::string_view freshImpressions,
                       const RegionalSettings& region);

struct ImpressionAverage {
  std::string History;     // its first seven entries
  std::int32_t Daily = 0;  // their rounded average
};

// An entry that can't be converted adds nothing, but counts as a day and stays.
ImpressionAverage AverageOf(std::string_view history, const RegionalSettings& region);

// The earnings of a whole day of average impressions; "N/A" if their text would be "$.". Throws
// StepFailed when `ecpm` can't be converted.
std::string PredictEarnings(std::string_view ecpm, std::int32_t dailyImpressions,
                            const RegionalSettings& region);

}  // namespace quillbox
