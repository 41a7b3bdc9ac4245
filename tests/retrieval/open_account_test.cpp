// Opening an account in the browser, already signed in.
#include "retrieval/open_account.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "simulated/context_on_state.h"

namespace quillbox {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

using OpenAccountTest = ContextOnState;

TEST_F(OpenAccountTest, OpensTheNamedOrThePrimaryAccount) {
  struct Case {
    const char *name, *primary;
    std::vector<std::string> opened;
  };
  const std::string one = SignInAddress("ann", "x", "h.test");
  const std::string two = SignInAddress("bob", "y", "h.test");
  const Case kCases[] = {{"one", "two", {one}},
                         {"", "two", {two}},
                         {"", "", {}},
                         {"", "gone", {}},
                         {"One", "two", {}},
                         {"two", "", {two}},
                         {"granted", "", {"https://h.test/"}}};
  state_.Accounts = {"one", "two", "two", "granted"};
  state_.Passwords.push_back("grant:ABCDEFGHIJ27");
  std::vector<std::string> all;
  for (const Case& c : kCases) {
    host_.Store.Put("AdSense", "PrimaryAccount", c.primary);
    OpenAccount(program_, c.name);
    all.insert(all.end(), c.opened.begin(), c.opened.end());
    EXPECT_THAT(host_.Opener.Opened(), ElementsAreArray(all)) << c.name << "/" << c.primary;
  }
  EXPECT_EQ(host_.Trace().size(), all.size()) << "and nothing else";
  host_.Effects.Clear();
  state_.Accounts.clear();
  OpenAccount(program_, "");
  EXPECT_THAT(host_.Trace(),
              ElementsAre("box You must complete the \"AdSense\" section of the Quillbox\r\n"
                          "Options before attempting to log into your AdSense account!",
                          "answer OK"));
}

}  // namespace
}  // namespace quillbox
