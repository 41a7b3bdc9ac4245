// The impressions of the last finished days, and what they promise for today.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "evaluation/cells.h"
#include "platform/regional_settings.h"

namespace quillbox {

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
