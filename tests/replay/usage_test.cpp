#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "replay/child_program.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

struct Case {
  std::vector<std::string> Arguments;
  const char* Error;  // a part of the line
};

TEST(Usage, EachMistakeGivesOneLineAndNothingElse) {
  const TemporaryFolder folder;
  folder.Put("a.ini", "[A]\n");
  folder.Put("bad.script", "no step\n");
  folder.Put("empty.script", "");
  const std::string ini = folder.File("a.ini");
  const Case kCases[] = {
      {{}, "say what to do"},
      {{"play"}, "unknown way"},
      {{"play\non"}, "unknown way"},
      {{"batch", "--fast"}, "unknown option --fast"},
      {{"batch", "file"}, "unknown option file"},
      {{"script"}, "one file"},
      {{"script", folder.File("none")}, "can't read"},
      {{"script", folder.Path()}, "can't read"},
      {{"script", folder.File("bad.script")}, "line 1"},
      {{"evaluate", "--account", "a"}, "--settings is missing"},
      {{"evaluate", "--settings", ini}, "--account is missing"},
      {{"evaluate", "--settings", ini, "--account"}, "needs a value"},
      {{"evaluate", "--settings", ini, "--account", "a", "--save", "--save"}, "twice"},
      {{"evaluate", "--settings", ini, "--account", "a", "--Save"}, "unknown option"},
      {{"evaluate", "--settings", ini, "--account", "→"}, "windows-1252"},
      {{"evaluate", "--settings", ini, "--account", "a", "--region", "en"}, "unknown region en"},
      {{"evaluate", "--settings", ini, "--account", "a", "--at", "today"}, "--at must be"},
      {{"evaluate", "--settings", ini + "x", "--account", "a", "--save"},
       "can't read the settings"},
      {{"evaluate", "--settings", ini, "--account", "a", "--reports", ini, "--save"},
       "can't read the folder"},
  };
  for (const Case& c : kCases) {
    ChildProgram program(c.Arguments);
    const std::string error = program.ReadErrors();
    EXPECT_THAT(error, testing::HasSubstr(c.Error));
    EXPECT_EQ(std::count(error.begin(), error.end(), '\n'), 1) << error;
    EXPECT_EQ(program.ReadOutput(), "") << error;
    EXPECT_EQ(program.ExitCode(), 2) << error;
  }
  EXPECT_EQ(folder.Content("a.ini"), "[A]\n");
  EXPECT_EQ(folder.Content("a.inix"), "");
}

TEST(Usage, AScriptGivesItsTrace) {
  const TemporaryFolder folder;
  folder.Put("start.script", "{\"do\":\"start\"}\n");
  ChildProgram program({"script", folder.File("start.script")});
  const std::string trace = program.ReadOutput();
  EXPECT_EQ(program.ReadErrors(), "");
  EXPECT_EQ(program.ExitCode(), 0);
  EXPECT_THAT(trace, testing::HasSubstr("\"what\":"));
}

}  // namespace
}  // namespace quillbox
