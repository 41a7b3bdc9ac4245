// Running a script: read and check all steps, do them, write the trace.
#include "quillbox-replay/script/script_run.h"

#include <functional>
#include <istream>
#include <ostream>
#include <vector>

#include "quillbox-replay/script/script_members.h"
#include "quillbox-replay/script/script_step.h"
#include "quillbox-replay/script/script_trace.h"
#include "simulated/simulated_program.h"

namespace quillbox {
namespace {

constexpr const char* kHostStep = "host";

bool IsStep(const std::string& line) {
  const std::size_t first = line.find_first_not_of(" \t\r");
  return first != std::string::npos && line[first] != '#';
}

ScriptStep ReadLine(const std::string& line, int number) {
  try {
    return ReadScriptStep(line, number);
  } catch (const ScriptError& error) {
    throw ScriptError{"line " + std::to_string(number) + ": " + error.What};
  }
}

std::vector<ScriptStep> ReadSteps(std::istream& script) {
  std::vector<ScriptStep> steps;
  std::string line;
  for (int number = 1; std::getline(script, line); ++number) {
    if (!IsStep(line)) continue;
    steps.push_back(ReadLine(line, number));
    if (steps.back().Do == kHostStep && steps.size() > 1) {
      throw ScriptError{"line " + std::to_string(number) + ": \"host\" must be the first step"};
    }
  }
  return steps;
}

// The trace tells all times by the clock that the host step sets: it is written from there on.
void RunStep(SimulatedProgram& program, const ScriptStep& step,
             const std::function<void()>& clockIsSet) {
  const auto act = [&program, &step, clockIsSet] {
    const std::string line = std::to_string(step.Line);
    program.Host.Effects.Add("step", line + " " + step.Do, {{"line", line}, {"do", step.Do}});
    step.Act(program);
    if (step.Do == kHostStep) clockIsSet();
  };
  if (step.In) {
    program.Host.After(*step.In, act);
  } else {
    act();
  }
}

}  // namespace

int RunScript(std::istream& script, std::ostream& trace, std::string& error) {
  std::vector<ScriptStep> steps;
  try {
    steps = ReadSteps(script);
  } catch (const ScriptError& refused) {
    error = refused.What;
    return kScriptRefused;
  }
  SimulatedProgram program(steps.empty() ? 0 : steps.front().Seed);
  const std::function<void()> writeTrace = [&] {
    program.Host.Effects.HandTo(
        [&](const TraceEntry& entry) { WriteTraceEntry(trace, entry, program.Host.Time); });
  };
  if (steps.empty() || steps.front().Do != kHostStep) writeTrace();
  for (const ScriptStep& step : steps) RunStep(program, step, writeTrace);
  writeTrace();  // a host step that was to come later never came
  trace.flush();
  program.Host.Effects.HandTo([](const TraceEntry&) {});  // what goes with the program is no event
  return kScriptDone;
}

}  // namespace quillbox
