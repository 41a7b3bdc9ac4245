// Accounts that change while a cycle walks over them.
#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

#include "retrieval/refresh_cycle.h"
#include "simulated/context_on_state.h"
#include "simulated/sample_report.h"
#include "tray/tray_menu.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::StartsWith;

// The cycle on a state that the test owns, as the Options dialog does.
struct ChangingAccounts : ContextOnState {
  ChangingAccounts() {
    host_.Store.Put("TrayTooltip", "DataToDownload", "AdSense for Content");
    host_.Agents.Always(Answers("0"));
    BuildTraySubmenus(program_);
  }
  void Refresh() {
    host_.Do([this] { RefreshAllAccounts(program_); });
  }
};

void Resize(AccountList& list, std::size_t size) {
  list.Accounts.resize(size, "four");
  list.Usernames.resize(size, "eve");
  list.Passwords.resize(size, "w");
}

void RemoveFirst(AccountList& list) {
  list.Accounts.erase(list.Accounts.begin());
  list.Usernames.erase(list.Usernames.begin());
  list.Passwords.erase(list.Passwords.begin());
}

TEST_F(ChangingAccounts, GetNoFiguresOfOthers) {
  struct Case {
    const char* what;
    std::function<void(AccountList&)> change;  // in the turn of "one"
    std::size_t runs;
    std::vector<std::string> evaluated;
  };
  const Case kCases[] = {
      {"shrinks", [](AccountList& list) { Resize(list, 1); }, 1, {"one"}},
      {"is emptied", [](AccountList& list) { Resize(list, 0); }, 1, {}},
      {"its turn is removed", RemoveFirst, 2, {"three"}},
      {"renamed", [](AccountList& list) { list.Accounts[0] = "uno"; }, 3, {"two", "three", "uno"}},
      {"of another", [](AccountList& list) { list.Usernames[0] = "dan"; }, 3, {"two", "three"}},
      {"grows", [](AccountList& list) { Resize(list, 4); }, 3, {"one", "two", "three"}}};
  AccountList& list = state_;
  const AccountList atFirst = list;
  for (const Case& c : kCases) {
    list = atFirst;
    const std::size_t runsBefore = host_.Agents.Starts().size();
    host_.After(100ms, [&] { c.change(list); });
    Refresh();
    EXPECT_FALSE(state_.RefreshRunning) << c.what;
    EXPECT_EQ(host_.Agents.Starts().size() - runsBefore, c.runs) << c.what;
    std::vector<std::string> evaluated;
    for (const char* account : {"one", "two", "three", "four", "uno"}) {
      if (!host_.Store.Read("Accounts", account).empty()) evaluated.emplace_back(account);
      host_.Store.Put("Accounts", account, "");
    }
    EXPECT_EQ(evaluated, c.evaluated) << c.what;
  }
}

TEST_F(ChangingAccounts, ShortListsOfNamesAndPasswordsReadAsEmpty) {
  state_.Usernames.resize(1);
  state_.Passwords.clear();
  Refresh();
  ASSERT_EQ(host_.Agents.Starts().size(), 3U);
  EXPECT_THAT(host_.Agents.Starts()[0].Text, StartsWith("Email=%61%6e%6e&Passwd=%#%"));
  EXPECT_THAT(host_.Agents.Starts()[2].Text, StartsWith("Email=&Passwd=%#%"));
}

TEST_F(ChangingAccounts, ASettingChangedDuringTheCycleCountsFromTheNext) {
  host_.After(100ms, [this] { host_.Store.Put("TrayTooltip", "DataToDownload", "Referrals"); });
  Refresh();
  for (const AgentStart& start : host_.Agents.Starts()) {
    EXPECT_THAT(start.Text, testing::HasSubstr("/app/Content.dat"));
  }
}

}  // namespace
}  // namespace quillbox
