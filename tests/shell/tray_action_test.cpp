// What the texts of the two tray actions do.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulated/simulated_program.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAreArray;

TEST(TrayAction, DoesWhatItsTextSays) {
  struct Case {
    std::string_view action;
    std::vector<std::string> effects;
  };
  const Case kCases[] = {
      {"No Action", {}},
      {"Open primary AdSense account",
       {"open https://adsense.example.test/accounts/ServiceLoginAuth?..."}},
      {"Open Quillbox Options", {"form Opts"}},
      {"Refresh tooltip information", {"agent start 1 Content.dat", "agent write 1 Content.log"}},
      {"Visit Tarnwick Works", {"open https://quillbox.example.test"}},
      {"open quillbox options", {}},
      {"Visit", {}},
  };
  for (const Case& c : kCases) {
    for (const bool doubled : {false, true}) {
      SimulatedProgram program;
      program.UsedBefore();
      program.AddAccount("one", "ann", "x");
      program.Set(kPrimaryAccount, "one");
      program.Set(kDataToDownload, kDownloadContent);
      program.Set(doubled ? kTrayAction : kTraySingleAction, c.action);
      program.Start();
      program.Host.LeftDown();
      if (doubled) program.Host.DoubleClick();
      program.Host.RunFor(1min);
      EXPECT_THAT(program.Host.Trace({"form", "open", "agent", "box"}), ElementsAreArray(c.effects))
          << c.action << (doubled ? ", twice" : ", once");
    }
  }
}

}  // namespace
}  // namespace quillbox
