// One step of a script.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "simulated/simulated_program.h"

namespace quillbox {

using ScriptAction = std::function<void(SimulatedProgram&)>;

struct ScriptStep {
  int Line = 0;
  std::string Do;                               // the kind of step
  std::optional<std::chrono::milliseconds> In;  // later, while the steps behind it go on
  std::uint64_t Seed = 0;                       // of a host step
  ScriptAction Act;
};

// `text`: one line of a script. Throws ScriptError when it isn't a step. Line numbers count from 1.
ScriptStep ReadScriptStep(const std::string& text, int line);

}  // namespace quillbox
