// A run that crashes, in a library say, leaves its code too: whoever waits for the log has no other
// sign.
#pragma once

#include <string>

namespace quillbox {

// From here on a crash of the process leaves the code for "no answer" in the log, takes away the
// data file and ends the process as if the run had failed: status 0, or 1 without a log. To be
// called once.
void LeaveCodeOnCrash(const std::string& dataPath, const std::string& logPath);

}  // namespace quillbox
