// The submenu "Open AdSense Account" and its command numbers.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "retrieval/sign_in_address.h"
#include "shell/form_on_state.h"

namespace quillbox {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AccountCommands : public FormOnState {
 protected:
  AccountCommands() {
    form_.Load();
    host_.RunFor(std::chrono::seconds(1));
  }

  std::vector<std::string> Items() {
    std::vector<std::string> items;
    for (const MenuItem& item : OpenAccountMenu(state_)) {
      items.push_back(std::to_string(item.Command) + " " + item.Caption);
    }
    return items;
  }

  void Rebuild() {
    ClearOpenAccountMenu(program_);
    FillOpenAccountMenu(program_);
  }
};

TEST_F(AccountCommands, CountFrom500InTheOrderOfTheAccounts) {
  EXPECT_THAT(Items(), ElementsAre("500 one", "501 two", "502 three"));
  state_.Accounts = {"two", "uno"};
  state_.Usernames = {"bob", "ann"};
  Rebuild();
  EXPECT_THAT(Items(), ElementsAre("500 two", "501 uno"));
  host_.Store.Put("AdSense", "PrimaryAccount", "two");
  host_.Choose("uno");
  EXPECT_THAT(host_.Opener.Opened(), ElementsAre(SignInAddress("ann", "y", "h.test")));
  state_.Accounts.clear();
  Rebuild();
  EXPECT_THAT(Items(), IsEmpty());
  EXPECT_TRUE(state_.TrayMenu[3].Submenu && state_.TrayMenu[5].Submenu) << "still in the menu";
}

// A menu that stands open while the accounts change keeps its old commands.
TEST_F(AccountCommands, OfAnOldMenuMeanTheIndex) {
  state_.Accounts = {"two"};
  for (const int command : {0, 1, 499, 500, 501, 502}) {
    MenuItem item;
    item.Command = command;
    form_.MenuItemChosen(item);
    EXPECT_EQ(host_.Opener.Opened().size(), command < 500 ? 0U : 1U) << command;
  }
  EXPECT_EQ(host_.Opener.Opened()[0], SignInAddress("ann", "x", "h.test"));
  EXPECT_THAT(host_.Trace({"box"}), IsEmpty());
}

}  // namespace
}  // namespace quillbox
