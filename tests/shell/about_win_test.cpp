// The About box's model, and the way to it from the menu.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "about/about_win.h"
#include "simulated/simulated_program.h"

namespace quillbox {
namespace {

using testing::ElementsAre;

class AboutWinTest : public testing::Test {
 protected:
  AboutWinTest() { host_.Windows.Load(about_); }

  SimulatedHost host_;
  BuildValues build_{"", "", "https://maker.example.test", "help@maker.example.test", "1.3.0"};
  AboutWin about_{build_, host_.Opener, host_.Windows};
};

TEST_F(AboutWinTest, TellsProductAndMaker) {
  EXPECT_EQ(about_.Caption, "About Quillbox");
  EXPECT_EQ(about_.Product, "Quillbox 1.3.0");
  EXPECT_EQ(about_.WebAddress, "https://maker.example.test");
  EXPECT_EQ(about_.Email, "help@maker.example.test");
}

TEST_F(AboutWinTest, OpensTheSiteAndALetterToTheMaker) {
  about_.WebAddress_Click();
  about_.Email_Click();
  EXPECT_THAT(host_.Trace({"open"}), ElementsAre("open https://maker.example.test",
                                                 "open mailto:help@maker.example.test"));
}

TEST_F(AboutWinTest, ClosesWithOkOnce) {
  about_.OK_Click();
  about_.OK_Click();
  EXPECT_THAT(host_.Trace(), ElementsAre("form AboutWin", "close AboutWin"));
}

TEST(AboutInTheMenu, LoadsTheFormOnceAndAnewAfterItWasClosed) {
  SimulatedProgram program;
  program.UsedBefore();
  program.Start();
  program.Host.Effects.Clear();
  program.Host.Choose("About");
  program.Host.Choose("About");
  program.Host.Windows.Unload(FormName::kAboutWin);
  program.Host.Choose("About");
  EXPECT_THAT(program.Host.Trace({"form", "close"}),
              ElementsAre("form AboutWin", "close AboutWin", "form AboutWin"));
}

}  // namespace
}  // namespace quillbox
