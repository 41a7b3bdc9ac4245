// The parts of a report of more lines than one answer holds.
#pragma once

#include <cstddef>
#include <vector>

#include "api/report_answer.h"

namespace quillbox {

// The days of an answer that was cut short, in parts to ask for one by one: in order, as equal as
// can be, and so many that each would fill half an answer if every day had as many lines. None for
// a single day, which has no parts.
std::vector<DayRange> PartsOf(const ReportAnswer& cut);

// What a cut answer says about the range as a whole, without its lines and totals. Nobody says
// whether the totals of a cut answer are those of all lines.
ReportAnswer WithoutFigures(ReportAnswer cut);

// Adds the whole answer for the days that follow on those which `report` has lines for. The totals
// of all parts together are those of the range.
void AddPart(ReportAnswer& report, ReportAnswer part);

// Roughly what the lines take, never less than the bytes of the shortest lines in a table.
std::size_t BytesOf(const std::vector<ReportLine>& lines);

}  // namespace quillbox
