#include <gmock/gmock.h>

#include "replay/replay_start.h"
#include "system/temporary_folder.h"

namespace quillbox {
namespace {

using testing::AllOf;
using testing::HasSubstr;

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
  EXPECT_THAT(saved, testing::StartsWith("; mine\n[AdSense]\nACCOUNTS=Caf\xE9\n"));
  EXPECT_THAT(saved, AllOf(HasSubstr("\nCAF\xC9=9:05 AM|||1/31/2007|||1000|||10|||"),
                           HasSubstr("\n[Misc]\nLASTDATE=1/31/2007\n")));
  EXPECT_THAT(Run(),
              AllOf(HasSubstr("Record, not to be stored"), HasSubstr("Changes\n  none\n"),
                    HasSubstr("Tooltip\n  left as it is\n"), HasSubstr("Balloon\n  none\n")));
}

}  // namespace
}  // namespace quillbox
