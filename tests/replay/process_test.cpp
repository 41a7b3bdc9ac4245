// The program as a process: batches line by line, an evaluation in words, pages, traces, and what
// it says of mistakes.
#include <gmock/gmock.h>

#include <algorithm>
#include <thread>

#include "support/child_process.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

ChildStart ReplayStart(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), QUILLBOX_REPLAY);
  return {std::move(arguments), {}, true};
}

std::string Request(int id) {
  return R"({"op":"convert","function":"ScrambleText","argument":"abc","id":)" +
         std::to_string(id) + "}";
}

std::string AnswerTo(int id) {
  return R"({"ok":true,"id":)" + std::to_string(id) + R"(,"result":"bdf"})";
}

TEST(BatchProcess, AnswersEachLineWhileTheClientWaits) {
  ChildProcess batch(ReplayStart({"batch"}));
  for (int i = 0; i < 3; ++i) {
    batch.Write(Request(i) + "\n");
    EXPECT_EQ(batch.ReadLine(), AnswerTo(i));
  }
  // A line that has begun doesn't hold back the answer to the one before.
  batch.Write(Request(3) + "\n" + Request(4).substr(0, 10));
  EXPECT_EQ(batch.ReadLine(), AnswerTo(3));
  batch.Write(Request(4).substr(10) + "\r\n");
  EXPECT_EQ(batch.ReadLine(), AnswerTo(4));
  batch.Write("nope\n\n" + Request(5));  // the last line has no end
  batch.CloseInput();
  EXPECT_THAT(batch.ReadLine(), StartsWith(R"({"ok":false,"error":)"));
  EXPECT_THAT(batch.ReadLine(), StartsWith(R"({"ok":false,"error":)"));
  EXPECT_EQ(batch.ReadAll(), AnswerTo(5) + "\n");
  EXPECT_EQ(batch.ReadErrors(), "");
  EXPECT_EQ(batch.Wait(), 0);
}

TEST(BatchProcess, KeepsTheOrderOfManyAndLongLines) {
  constexpr int kRequests = 5000;
  ChildProcess batch(ReplayStart({"batch"}));
  std::thread writer([&batch] {
    std::string requests;
    for (int i = 0; i < kRequests; ++i) requests += Request(i) + "\n";
    batch.Write(requests);
    batch.Write(R"({"op":"convert","function":"KeepNumberChars","argument":")" +
                std::string(1000000, '1') + "\"}\n");
    batch.CloseInput();
  });
  int inOrder = 0;
  while (inOrder < kRequests && batch.ReadLine() == AnswerTo(inOrder)) ++inOrder;
  EXPECT_EQ(inOrder, kRequests);
  EXPECT_EQ(batch.ReadLine(), R"({"ok":true,"result":")" + std::string(1000000, '1') + "\"}");
  writer.join();
  EXPECT_EQ(batch.Wait(), 0);
}

constexpr const char* kSettings =
    "; mine\n[AdSense]\nACCOUNTS=Caf\xE9\nPRIMARYACCOUNT=Caf\xE9\n"
    "[TrayTooltip]\nDATATODOWNLOAD=AdSense for Content\nVALUES=BCG\n"
    "[TrayIcon]\nSHOWBALLOONWHEN=Clicks Changes\n[Sounds]\nCLICKSCHANGED=c.wav\n"
    "[Accounts]\nCAF\xC9=8:00 "
    "AM|||1/30/2007|||900|||9|||1.0%|||2.00|||1.80|||$0.00|||1|||1|||1%|||1.00|||1.00\n"
    "CAF\xC9 IMPRESSIONS=800|||700\n";
constexpr const char* kReport =
    "heading\n1/31/2007\t1000\t10\t1.00%\t2.00\t2.00\nTotals\t5000\t50\t1.00%\t2.00\t10.00\n-\n";

class EvaluateCommand : public testing::Test {
 protected:
  EvaluateCommand() {
    folder_.Put("a.ini", kSettings);
    folder_.Put("Content.dat", kReport);
  }

  // What it says.
  std::string Run(const std::vector<std::string>& more = {}) {
    std::vector<std::string> arguments = {"evaluate",     "--settings", folder_.File("a.ini"),
                                          "--account",    "Café",       "--reports",
                                          folder_.Path(), "--at",       "2007-01-31T09:05:00"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    ChildProcess program(ReplayStart(arguments));
    const std::string words = program.ReadAll();
    EXPECT_EQ(program.ReadErrors(), "");
    EXPECT_EQ(program.Wait(), 0);
    return words;
  }

  TemporaryFolder folder_;
};

TEST_F(EvaluateCommand, TellsInWordsWhatComesOfTheReports) {
  const std::string words = Run();
  EXPECT_THAT(words,
              AllOf(HasSubstr("Account \"Café\" at 2007-01-31T09:05:00, region en-US\n"),
                    HasSubstr("\n  Content.dat         76 bytes\n"),
                    HasSubstr("newest first\n  800, 700\n"), HasSubstr("Record, to be stored\n"),
                    HasSubstr("\n  Impressions         1000  (before: 900)\n"),
                    HasSubstr("\n  Predicted earnings  $1.50  (before: $0.00)\n"),
                    HasSubstr("Changes\n  impressions, clicks, clickthrough rate, ")));
  const std::string text = "  Impressions: 1,000\n  Clicks: 10\n  Downloaded: 9:05 AM\n";
  EXPECT_THAT(words, AllOf(HasSubstr("Tooltip\n" + text), HasSubstr("Balloon\n" + text),
                           HasSubstr("is heard\n  c.wav\n"), HasSubstr("Nothing is saved")));
  EXPECT_THAT(Run({"--region", "de-DE"}),
              HasSubstr("\n  eCPM                2,00  (before: 2.00)\n"));
  EXPECT_EQ(folder_.Content("a.ini"), kSettings);
}

TEST_F(EvaluateCommand, SavesWhenToldToAndThenNothingIsNew) {
  EXPECT_THAT(Run({"--save"}), HasSubstr("Saved in " + folder_.File("a.ini")));
  const std::string saved = folder_.Content("a.ini");
  EXPECT_THAT(saved, StartsWith("; mine\n[AdSense]\nACCOUNTS=Caf\xE9\n"));
  EXPECT_THAT(saved, AllOf(HasSubstr("\nCAF\xC9=9:05 AM|||1/31/2007|||1000|||10|||"),
                           HasSubstr("\n[Misc]\nLASTDATE=1/31/2007\n")));
  EXPECT_THAT(Run(),
              AllOf(HasSubstr("Record, not to be stored"), HasSubstr("Changes\n  none\n"),
                    HasSubstr("Tooltip\n  left as it is\n"), HasSubstr("Balloon\n  none\n")));
}

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
    EXPECT_THAT(error, HasSubstr(c.Error));
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
  EXPECT_THAT(program.ReadAll(), HasSubstr(folder.File("Report.html")));
  EXPECT_EQ(program.Wait(), 0);
  EXPECT_THAT(folder.Content("Report.html"),
              HasSubstr("labels = \"Tuesday<BR>02/01/07\";graph.values = \"5\";"));
}

TEST(Usage, AScriptGivesItsTrace) {
  const TemporaryFolder folder;
  folder.Put("start.script", "{\"do\":\"start\"}\n");
  ChildProcess program(ReplayStart({"script", folder.File("start.script")}));
  const std::string trace = program.ReadAll();
  EXPECT_EQ(program.ReadErrors(), "");
  EXPECT_EQ(program.Wait(), 0);
  EXPECT_THAT(trace, HasSubstr("\"what\":"));
}

}  // namespace
}  // namespace quillbox
