// The trace as JSON lines.
#pragma once

#include <iosfwd>

#include "simulated/simulated_time.h"
#include "simulated/simulated_trace.h"

namespace quillbox {

// One object on a line, in UTF-8: "at" (simulated time of day), "what", and either the entry's
// parts or its "text".
void WriteTraceEntry(std::ostream& out, const TraceEntry& entry, const SimulatedTime& time);

}  // namespace quillbox
