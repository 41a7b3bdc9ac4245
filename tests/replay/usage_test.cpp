#include <gmock/gmock.h>

#include <algorithm>

#include "replay/replay_start.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

constexpr const char* kTitle = "Ad Performance - Clicks";

TEST(Usage, EachMistakeGivesOneLineAndNothingElse) {
  const TemporaryFolder folder;
  folder.Put("a.ini", "[A]\n");
  folder.Put("bad.script", "no step\n");
  folder.Put("empty.script", "");
  const std::string ini = folder.File("a.ini");
  // A whole request for an evaluation, and more.
  const auto evaluate = [&ini](std::vector<std::string> more) {
    more.insert(more.begin(), {"evaluate", "--settings", ini, "--account", "a"});
    return more;
  };
  struct Case {
    std::vector<std::string> Arguments;
    const char* Error;  // a part of the line
  };
  const Case kCases[] = {
      {{}, "say what to do"},
      {{"play"}, "not expected: play"},
      {{"play\non"}, "not expected: play on"},
      {{"batch", "--fast"}, "not expected: --fast"},
      {{"batch", "file"}, "not expected: file"},
      {{"script"}, "FILE is required"},
      {{"script", ini, ini}, "not expected"},
      {{"script", "--fast"}, "FILE is required"},
      {{"script", folder.File("none")}, "can't read"},
      {{"script", folder.Path()}, "can't read"},
      {{"script", folder.File("bad.script")}, "line 1"},
      {{"evaluate", "--account", "a"}, "--settings is required"},
      {{"evaluate", "--settings", ini}, "--account is required"},
      {{"evaluate", "--settings", ini, "--account"}, "--account"},
      {evaluate({"--save", "--save"}), "--save"},
      {evaluate({"--account", "b"}), "--account"},
      {evaluate({"--Save"}), "not expected: --Save"},
      {{"evaluate", "--settings", ini, "--account", "→"}, "windows-1252"},
      {evaluate({"--region", "en"}), "unknown region en"},
      {evaluate({"--at", "today"}), "--at must be"},
      {{"evaluate", "--settings", ini + "x", "--account", "a", "--save"},
       "can't read the settings"},
      {evaluate({"--reports", ini, "--save"}), "can't read the folder"},
      {{"report", "--reports", ini, "--out", ini}, "--title is required"},
      {{"report", "--title", "Ad", "--reports", ini, "--out", ini},
       "unknown report title Ad; the titles are: Ad Performance - "},
      {{"report", "--title", kTitle, "--reports", ini + "x", "--out", ini},
       "can't read the report"},
      {{"report", "--title", kTitle, "--reports", ini, "--out", ini}, "no data in the report"},
  };
  for (const Case& c : kCases) {
    ChildProcess program(ReplayStart(c.Arguments));
    const std::string error = program.ReadErrors();
    EXPECT_THAT(error, testing::HasSubstr(c.Error));
    EXPECT_EQ(std::count(error.begin(), error.end(), '\n'), 1) << error;
    EXPECT_EQ(program.ReadAll(), "") << error;
    EXPECT_EQ(program.Wait(), 2) << error;
  }
  EXPECT_EQ(folder.Content("a.ini"), "[A]\n");
  EXPECT_EQ(folder.Content("a.inix"), "");
}

TEST(Usage, AReportGivesItsPage) {
  const TemporaryFolder folder;
  folder.Put("Report.dat", "h\n2/1/2007\t1\t5\nt\na\n");
  ChildProcess program(
      ReplayStart({"report", "--title", kTitle, "--reports", folder.File("Report.dat"), "--region",
                   "en-GB", "--out", folder.File("Report.html")}));
  EXPECT_THAT(program.ReadAll(), testing::HasSubstr(folder.File("Report.html")));
  EXPECT_EQ(program.Wait(), 0);
  EXPECT_THAT(folder.Content("Report.html"),
              testing::HasSubstr("labels = \"Tuesday<BR>02/01/07\";graph.values = \"5\";"));
}

TEST(Usage, AScriptGivesItsTrace) {
  const TemporaryFolder folder;
  folder.Put("start.script", "{\"do\":\"start\"}\n");
  ChildProcess program(ReplayStart({"script", folder.File("start.script")}));
  const std::string trace = program.ReadAll();
  EXPECT_EQ(program.ReadErrors(), "");
  EXPECT_EQ(program.Wait(), 0);
  EXPECT_THAT(trace, testing::HasSubstr("\"what\":"));
}

}  // namespace
}  // namespace quillbox
