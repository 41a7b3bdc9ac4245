// The figures of the latest day and of the month, from the rows of the selected reports.
#pragma once

#include <span>

#include "evaluation/account_stats.h"
#include "evaluation/report_row.h"
#include "platform/regional_settings.h"

namespace quillbox {

// Sets ReportDate and the figures of day and month but the predicted earnings. One row's cells are
// taken as they are; three rows (content, search, referral) are merged. A figure that can't be
// worked out is empty.
AccountStats FiguresOf(std::span<const ReportRow> rows, const RegionalSettings& region);

}  // namespace quillbox
