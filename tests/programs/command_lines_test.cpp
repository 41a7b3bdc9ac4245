// The command lines of all programs: questions about themselves, and mistakes.
#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <sstream>

#include "support/child_process.h"

namespace quillbox {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;
using Words = std::vector<std::string>;

// No display, no home folder: a question needs neither.
ChildStart StartOf(const std::string& program, Words arguments) {
  arguments.insert(arguments.begin(), QUILLBOX_PROGRAM_FOLDER + program);
  return {std::move(arguments), {}, true};
}

Words BuiltPrograms() {
  Words programs;
  std::istringstream list(QUILLBOX_PROGRAMS);
  for (std::string program; list >> program;) programs.push_back(program);
  return programs;
}

TEST(CommandLines, AnswerQuestionsOnStandardOutput) {
  const std::map<std::string, Words> kMustTell = {
      {"dl", {"authorize", "check", "revoke", "open", "ADDRESS|DATA|LOG"}},
      {"quillbox-replay", {"evaluate", "report", "script", "batch"}},
      {"demo-settings", {"write", "show"}},
      {"demo-service", {"--port N", "--fail RULE", "--consent page|auto|deny", "--listen"}},
      {"quillbox-sound", {"quillbox-sound FILE"}},
      {"quillbox-report-view", {"quillbox-report-view"}},
      {"quillbox", {"usage: quillbox"}},
  };
  for (const std::string& name : BuiltPrograms()) {
    for (const char* question : {"--help", "-h", "--version"}) {
      SCOPED_TRACE(name + " " + question);
      ChildProcess program(StartOf(name, {question}));
      const std::string answer = program.ReadAll();
      EXPECT_EQ(program.ReadErrors(), "");
      EXPECT_EQ(program.Wait(), 0);
      if (question == std::string("--version")) {
        EXPECT_EQ(answer, name + " " QUILLBOX_VERSION "\n");
        continue;
      }
      EXPECT_THAT(answer, AllOf(HasSubstr("--help"), HasSubstr("--version")));
      for (const std::string& told : kMustTell.at(name)) EXPECT_THAT(answer, HasSubstr(told));
    }
  }
}

TEST(CommandLines, NameTheMistakeInOneLine) {
  struct Case {
    const char* Program;
    Words Arguments;
    const char* Error;  // begins behind the program's name
  };
  const Case kCases[] = {
      {"demo-service", {"--port", "x"}, "--port needs a number from 0 to 65535, not \"x\""},
      {"demo-service", {"--port", "65536"}, "--port needs a number"},
      {"demo-service", {"--seed", "-1"}, "--seed needs a number"},
      {"demo-service", {"--speed", "0"}, "--speed needs a number from 1 to 1e+06"},
      {"demo-service", {"--token-life", "1s"}, "--token-life needs a number"},
      {"demo-service", {"--publishers", "0"}, "--publishers needs a number from 1 to 10000"},
      {"demo-service", {"--ready-publishers", ""}, "--ready-publishers needs a number"},
      {"demo-service", {"--page-limit", "x"}, "--page-limit needs a number"},
      {"demo-service", {"--row-limit", "100001"}, "--row-limit needs a number"},
      {"demo-service", {"--clock-skew", "now"}, "--clock-skew needs a number"},
      {"demo-service", {"--account", "a"}, "--account needs EMAIL:PASSWORD, not \"a\""},
      {"demo-service", {"--grant", "a"}, "--grant needs EMAIL:TOKEN"},
      {"demo-service", {"--fail", "sometimes"}, "--fail needs a failure that the service knows"},
      {"demo-service", {"--version-text", ""}, "--version-text needs a text that isn't empty"},
      {"demo-service", {"--consent", "no"}, "--consent needs auto or deny or page, not \"no\""},
      {"demo-service", {"--refresh", "no"}, "--refresh needs keep or rotate"},
      {"demo-service", {"--listen", "0.0.0.0"}, "--listen needs 127.0.0.1 or ::1"},
      {"demo-service", {"--warning"}, "--warning"},
      {"demo-service", {"--fast"}, "The following argument was not expected: --fast"},
      {"dl", {}, "expected one argument: REQUEST|DATA FILE|LOG FILE"},
      {"dl", {"https://h.test/x|data"}, "expected one argument"},
      {"demo-settings", {}, ""},
      {"demo-settings", {"show", "all"}, "The following argument was not expected: all"},
      {"demo-settings", {"write"}, "write needs NAME E-MAIL PASSWORD"},
      {"demo-settings", {"write", "a", "b"}, "write needs NAME E-MAIL PASSWORD"},
      {"quillbox-sound", {}, "say which file to play"},
  };
  const Words built = BuiltPrograms();
  for (const Case& c : kCases) {
    if (std::find(built.begin(), built.end(), c.Program) == built.end()) continue;
    SCOPED_TRACE(c.Program + testing::PrintToString(c.Arguments));
    ChildProcess program(StartOf(c.Program, c.Arguments));
    const std::string error = program.ReadErrors();
    EXPECT_THAT(error, StartsWith(std::string(c.Program) + ": " + c.Error));
    EXPECT_EQ(std::count(error.begin(), error.end(), '\n'), 1) << error;
    EXPECT_EQ(program.ReadAll(), "");
    EXPECT_EQ(program.Wait(), 2);
  }
}

}  // namespace
}  // namespace quillbox
