// Running a script: what happens to the program goes in, the trace of what it did comes out.
#pragma once

#include <iosfwd>
#include <string>

namespace quillbox {

inline constexpr int kScriptDone = 0;
inline constexpr int kScriptRefused = 2;

// `script` has one step a line, each a JSON object (docs/replay-script.md). `trace` gets one JSON
// object a line for each thing that the program did. The whole script is checked before its first
// step is done, and the trace comes as the steps are done: a script with a fault gives
// kScriptRefused, one line in `error` that says what is wrong in which line, and no trace.
int RunScript(std::istream& script, std::ostream& trace, std::string& error);

}  // namespace quillbox
