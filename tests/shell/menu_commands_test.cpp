// The tray menu, item for item, and what its items do.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "about/about_win.h"
#include "retrieval/open_account.h"
#include "shell/form_on_state.h"
#include "simulated/used_program.h"

namespace quillbox {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MenuCommandsTest : public testing::Test {
 protected:
  MenuCommandsTest() {
    host_.Agents.Always(Answers("0"));
    program_.StartQuietly();
  }

  const MenuItem& Item(std::size_t position) const { return program_.State().TrayMenu[position]; }

  UsedProgram program_;
  SimulatedHost& host_ = program_.Host;
};

std::vector<std::string> Described(const Menu& menu) {
  std::vector<std::string> lines;
  for (const MenuItem& item : menu) {
    std::string line = item.Separator ? "---" : item.Caption;
    if (item.Submenu) line += " >";
    if (item.Default) line += " (default)";
    lines.push_back(item.Name + ": " + line);
  }
  return lines;
}

TEST_F(MenuCommandsTest, ReadsFromTopToBottom) {
  EXPECT_THAT(
      Described(program_.State().TrayMenu),
      ElementsAre("Options: Options... (default)", "Sep1: ---", "RefreshNow: Refresh Now",
                  "OpenAccountMenu: Open AdSense Account >", "Sep3: ---",
                  "AccountsMenu: Accounts >", "Reports: Reports...", "sep99: ---",
                  "About: About...", "Help: Help >", "CheckForNewVersion: Check for New Version",
                  "Sep4: ---", "TWVisit: Visit Tarnwick Works", "TWDonate: Support Quillbox",
                  "Sep2: ---", "Exit: Exit"));
  EXPECT_THAT(Described(Item(9).Items),
              ElementsAre("QuillboxManual: Quillbox Manual",
                          "QuillboxSupportForums: Quillbox Support Forums",
                          "SendBugReport: Send Bug Report"));
}

TEST_F(MenuCommandsTest, LinksLeadToTheMakersSite) {
  struct Case {
    const char *item, *address;
  };
  const Case kCases[] = {
      {"TWVisit", "https://quillbox.example.test"},
      {"TWDonate", "https://quillbox.example.test/Donate.asp"},
      {"QuillboxSupportForums", "https://quillbox.example.test/Forum/index.php?c=19"},
      {"SendBugReport",
       "https://quillbox.example.test/BugReport.asp?Application=Quillbox&Version=1.3.0"}};
  for (const Case& c : kCases) {
    ASSERT_TRUE(host_.Choose(c.item));
    EXPECT_EQ(host_.Opener.Opened().back(), c.address) << c.item;
  }
  EXPECT_EQ(host_.Opener.Opened().size(), std::size(kCases));
}

TEST_F(MenuCommandsTest, TheManualIsAFileThatMayBeMissing) {
  host_.Choose("QuillboxManual");
  EXPECT_THAT(host_.Opener.Opened(), IsEmpty());
  ASSERT_EQ(host_.Boxes.Shown().size(), 1U);
  const Message& box = host_.Boxes.Shown()[0];
  EXPECT_EQ(box.Title, "Quillbox");
  EXPECT_EQ(box.Text, "The Help File is missing!  Reinstall Quillbox to correct this problem.");
  EXPECT_EQ(box.Icon, BoxIcon::kExclamation);
  host_.Files.Put("/app/ReadMe.txt", "How to");
  host_.Choose("QuillboxManual");
  EXPECT_THAT(host_.Opener.Opened(), ElementsAre("/app/ReadMe.txt"));
  EXPECT_EQ(host_.Boxes.Shown().size(), 1U);
}

TEST_F(MenuCommandsTest, EachFormIsLoadedOnceAndAnewAfterItWasClosed) {
  struct Case {
    const char *item, *form;
    FormName name;
  };
  const Case kCases[] = {{"Options", "form Opts", FormName::kOpts},
                         {"Reports", "form ReportsWin", FormName::kReportsWin},
                         {"About", "form AboutWin", FormName::kAboutWin}};
  for (const Case& c : kCases) {
    host_.Effects.Clear();
    host_.Choose(c.item);
    host_.Choose(c.item);
    EXPECT_THAT(host_.Trace({"form"}), ElementsAre(c.form)) << c.item;
    host_.Windows.Unload(c.name);
    host_.Choose(c.item);
    EXPECT_THAT(host_.Trace({"form"}), ElementsAre(c.form, c.form)) << c.item;
  }
}

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
