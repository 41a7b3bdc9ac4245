// The trace as JSON lines.
#pragma once

#include <iosfwd>

#include "simulated/simulated_host.h"

namespace quillbox {

// One object a line, in UTF-8: "at" (simulated time of day), "what", and either the entry's parts
// or its "text".
void WriteScriptTrace(std::ostream& out, const SimulatedHost& host);

}  // namespace quillbox
