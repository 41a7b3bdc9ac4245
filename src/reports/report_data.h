// From a saved report to the texts that its graph is drawn from.
#pragma once

#include <optional>
#include <string>

#include "region/regional_settings.h"
#include "reports/report_request.h"

namespace quillbox {

// The page takes these texts apart at their marks; nothing in a cell is escaped.
struct ReportData {
  std::string Labels;    // one for each day, "Monday<BR>1/1/07", with commas between them
  std::string Values;    // ":" between days, ";" between the channels of a day; a slot may be empty
  std::string Channels;  // "^" between names; empty unless the report is one of channels
};

// Nothing when the report holds no data: fewer than ten characters, or nothing between heading and
// summaries. `text` (code page) is the whole report, taken as it stands: a carriage return belongs
// to its cell, and the last two lines are summaries only if each ends in a line feed. A date
// without a year is in `currentYear`. Never fails: what it can't read stays empty. Takes time in
// proportion to the text, unless many channel names consist of
// the parts of others, with "^" between them.
std::optional<ReportData> BuildReportData(std::string text, const ReportTitle& title,
                                          const RegionalSettings& region, int currentYear);

}  // namespace quillbox
