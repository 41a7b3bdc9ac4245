// Any line of a script: either it is a step, and doing it leaves a trace of JSON objects, or one
// line of words says what is wrong.
#include <nlohmann/json.hpp>
#include <optional>
#include <sstream>

#include "fuzz/fuzz_input.h"
#include "quillbox-replay/script/script_members.h"
#include "quillbox-replay/script/script_run.h"
#include "quillbox-replay/script/script_step.h"

namespace {

using namespace quillbox;
using nlohmann::json;

// dump() throws on what isn't UTF-8.
void CheckError(const std::string& error) {
  Require(!error.empty() && !json(error).dump().empty());
  Require(std::ranges::none_of(error, [](unsigned char c) { return c < 0x20; }));
}

std::optional<ScriptStep> ReadStep(const std::string& text) {
  try {
    return ReadScriptStep(text, 1);
  } catch (const ScriptError& error) {
    CheckError(error.What);
    return std::nullopt;
  }
}

// What is written otherwise but holds the same is the same step; a member too many makes it none.
void CheckMembers(const std::string& text, const ScriptStep& step) {
  json members = json::parse(text);
  const auto again = ReadStep(members.dump(1));
  Require(again && again->Do == step.Do && again->In == step.In && again->Seed == step.Seed);
  members["no such member"] = 1;
  Require(!ReadStep(members.dump()));
}

void CheckTrace(const std::string& text) {
  std::istringstream script(text), trace;
  std::ostringstream out;
  std::string error;
  Require(RunScript(script, out, error) == kScriptDone && error.empty());
  trace.str(out.str());
  for (std::string line; std::getline(trace, line);) {
    const json event = json::parse(line);
    Require(event.is_object() && event["at"].is_string() && event["what"].is_string());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view in = TextOf(data, size);
  const std::string text = TakeText(in, '\n');
  const auto step = ReadStep(text);
  if (!step) return 0;
  Require(step->Line == 1 && step->Act != nullptr);
  Require(!step->In || step->In->count() >= 0);
  CheckMembers(text, *step);
  if (step->Do != "start") CheckTrace(text);  // a start takes long
  return 0;
}
