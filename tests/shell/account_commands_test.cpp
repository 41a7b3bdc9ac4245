// The submenu "Open AdSense Account" and its command numbers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "retrieval/sign_in_address.h"
#include "shell/form_on_state.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

class AccountCommands : public FormOnState {
 protected:
  AccountCommands() {
    form_.Load();
    host_.RunFor(1s);
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
  state_.Passwords = {"y", "x"};
  Rebuild();
  EXPECT_THAT(Items(), ElementsAre("500 two", "501 uno"));
  host_.Choose("uno");
  EXPECT_THAT(host_.Opener.Opened(), ElementsAre(SignInAddress("ann", "x", "h.test")));
  state_.Accounts.clear();
  Rebuild();
  EXPECT_THAT(Items(), IsEmpty());
  EXPECT_TRUE(state_.TrayMenu[3].Submenu && state_.TrayMenu[5].Submenu) << "still in the menu";
}

TEST_F(AccountCommands, OpenTheirAccountAndDontLookAtThePrimaryOne) {
  host_.Store.Put("AdSense", "PrimaryAccount", "one");
  host_.Choose("three");
  EXPECT_THAT(host_.Opener.Opened(), ElementsAre(SignInAddress("cyd", "z", "h.test")));
}

// A menu that stands open while the accounts change keeps its old commands.
TEST_F(AccountCommands, OfAnOldMenuMeanTheIndex) {
  struct Case {
    int command;
    std::vector<std::string> opened;
  };
  const std::string two = SignInAddress("bob", "y", "h.test");
  const Case kCases[] = {{500, {two}}, {501, {}}, {502, {}}, {499, {}}, {1, {}}, {0, {}}};
  state_.Accounts = {"two"};
  state_.Usernames = {"bob"};
  state_.Passwords = {"y"};
  for (const Case& c : kCases) {
    const std::size_t before = host_.Opener.Opened().size();
    MenuItem item;
    item.Command = c.command;
    form_.MenuItemChosen(item);
    const auto& all = host_.Opener.Opened();
    EXPECT_THAT(std::vector(all.begin() + static_cast<std::ptrdiff_t>(before), all.end()),
                ElementsAreArray(c.opened))
        << c.command;
  }
  EXPECT_THAT(host_.Trace({"box"}), IsEmpty());
}

}  // namespace
}  // namespace quillbox
