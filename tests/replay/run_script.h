// Scripts for the tests: what comes of them, line for line.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "quillbox-replay/formats/json.h"
#include "quillbox-replay/script/script_run.h"
#include "text/code_page.h"

namespace quillbox {

// A person who has used the program before and starts it; single clicks lead to the maker's site.
inline constexpr const char* kUsedAndStarted =
    R"({"do":"settings","values":{"Misc":{"Runs":"2"},"General":{"CheckForNewVersion":"False","CheckPrompted":"True"},"TrayIcon":{"SingleAction":"Visit Tarnwick Works"}}}
{"do":"start"}
)";

// The trace of a script without faults.
inline std::vector<std::string> TraceOf(const std::string& script) {
  std::istringstream in(script);
  std::ostringstream out;
  std::string error;
  EXPECT_EQ(RunScript(in, out, error), kScriptDone) << error;
  std::vector<std::string> lines;
  std::istringstream trace(out.str());
  for (std::string line; std::getline(trace, line);) lines.push_back(line);
  return lines;
}

// What lines of these kinds tell: the kind and the other texts, behind the seconds when `timed`.
inline std::vector<std::string> TextsOf(const std::vector<std::string>& trace,
                                        const std::set<std::string>& kinds, bool timed = false) {
  std::vector<std::string> texts;
  for (const std::string& line : trace) {
    const JsonLine json = ReadJsonLine(line);
    EXPECT_EQ(json.NotJson + json.Fault, "") << line;
    const JsonValue& members = json.Value;
    if (!kinds.contains(members.Find("what")->Text)) continue;
    std::string text = timed ? members.Find("at")->Text.substr(17) + " " : "";
    for (const auto& [name, value] : members.Members) {
      if (name != "at") text += (name == "what" ? "" : " ") + ToUtf8(value.Text);
    }
    texts.push_back(text);
  }
  return texts;
}

// What is said about a script with a fault.
inline std::string Refusal(const std::string& script) {
  std::istringstream in(script);
  std::ostringstream out;
  std::string error;
  EXPECT_EQ(RunScript(in, out, error), kScriptRefused) << script;
  EXPECT_EQ(out.str(), "") << script;
  return error;
}

// A step as it is written in C++: without braces, and with one kind of quotation mark for the
// other.
inline std::string Step(std::string members) {
  std::ranges::replace(members, '\'', '"');
  return "{" + members + "}\n";
}

}  // namespace quillbox
