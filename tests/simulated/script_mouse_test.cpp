// Scripts of a person at the tray icon.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "simulated/script_run.h"

namespace quillbox {
namespace {

using testing::ElementsAreArray;
using testing::HasSubstr;

// What the mouse brought about: time of day and kind of event.
std::vector<std::string> TraceFrom(const std::string& script) {
  std::istringstream in(script);
  std::ostringstream out;
  std::string error;
  EXPECT_EQ(RunScript(in, out, error), kScriptDone) << error;
  std::vector<std::string> lines;
  std::istringstream trace(out.str());
  for (std::string line; std::getline(trace, line);) {
    for (const char* what : {"tooltip", "menu", "form", "open"}) {
      const std::string mark = std::string("\"what\":\"") + what + "\"";
      if (line.find(mark) != std::string::npos) lines.push_back(line.substr(18, 12) + " " + what);
    }
  }
  return lines;
}

constexpr const char* kStart =
    R"({"do":"settings","values":{"Misc":{"Runs":"2"},"General":{"CheckForNewVersion":"False","CheckPrompted":"True"},"TrayIcon":{"Action":"Open Quillbox Options","SingleAction":"Visit Tarnwick Works"}}})"
    "\n"
    R"({"do":"start"})"
    "\n";

TEST(MouseScript, DoesWhatThePersonDoes) {
  struct Case {
    const char* steps;
    std::vector<std::string> trace;
  };
  const Case kCases[] = {
      {R"({"do":"hover"}
{"do":"leave","in":"900ms"}
{"do":"run","for":"2s"})",
       {"09:05:00.401 tooltip", "09:05:00.900 tooltip"}},
      {R"({"do":"hover","x":5,"y":6}
{"do":"leave","x":5,"y":6,"in":"900ms"}
{"do":"run","for":"1m"})",
       {"09:05:00.401 tooltip"}},
      {R"({"do":"left"}
{"do":"run","for":"1s"})",
       {"09:05:00.200 open"}},
      {R"({"do":"left"}
{"do":"double","in":"150ms"}
{"do":"run","for":"1s"})",
       {"09:05:00.150 form"}},
      {R"({"do":"right","item":"About","after":"2s"})",
       {"09:05:00.000 menu", "09:05:02.000 menu", "09:05:02.000 form", "09:05:02.000 menu"}},
      {R"({"do":"right"})", {"09:05:00.000 menu", "09:05:00.000 menu"}},
      {R"({"do":"kill"}
{"do":"hover"}
{"do":"left"}
{"do":"double"}
{"do":"right","item":"Options"}
{"do":"start"}
{"do":"right"})",
       {"09:05:00.000 menu", "09:05:00.000 menu"}},
  };
  for (const Case& c : kCases) {
    EXPECT_THAT(TraceFrom(std::string(kStart) + c.steps), ElementsAreArray(c.trace)) << c.steps;
  }
}

TEST(MouseScript, IsRefusedWithACursorOffTheScreen) {
  for (const char* step : {R"({"do":"hover","x":40000})", R"({"do":"leave","y":-1})",
                           R"({"do":"right","item":4})", R"({"do":"left","x":4})"}) {
    std::istringstream in(step);
    std::ostringstream out;
    std::string error;
    EXPECT_EQ(RunScript(in, out, error), kScriptRefused) << step;
    EXPECT_THAT(error, HasSubstr("line 1: ")) << step;
  }
}

}  // namespace
}  // namespace quillbox
