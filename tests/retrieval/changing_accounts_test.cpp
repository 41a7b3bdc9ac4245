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
using testing::ElementsAreArray;
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

class DuringTheFirstTurn : public ChangingAccounts {
 public:
  void TestBody() override {}

  // The accounts whose figures are stored after a change in the turn of "one".
  std::vector<std::string> EvaluatedAfter(const std::function<void(AppState&)>& change) {
    host_.After(100ms, [this, change] { change(state_); });
    Refresh();
    EXPECT_FALSE(state_.RefreshRunning);
    std::vector<std::string> evaluated;
    for (const char* account : {"one", "two", "three", "four", "uno"}) {
      if (!host_.Store.Read("Accounts", account).empty()) evaluated.emplace_back(account);
    }
    return evaluated;
  }
  std::size_t Runs() const { return host_.Agents.Starts().size(); }
};

TEST(ChangedAccounts, GetNoFiguresOfOthers) {
  struct Case {
    const char* what;
    std::function<void(AppState&)> change;
    std::size_t runs;
    std::vector<std::string> evaluated;
  };
  const Case kCases[] = {
      {"shrinks", [](AppState& state) { Resize(state, 1); }, 1, {"one"}},
      {"is emptied", [](AppState& state) { Resize(state, 0); }, 1, {}},
      {"its turn is removed", [](AppState& state) { RemoveFirst(state); }, 2, {"three"}},
      {"renamed", [](AppState& state) { state.Accounts[0] = "uno"; }, 3, {"two", "three"}},
      {"of another", [](AppState& state) { state.Usernames[0] = "dan"; }, 3, {"two", "three"}},
      {"grows", [](AppState& state) { Resize(state, 4); }, 3, {"one", "two", "three"}}};
  for (const Case& c : kCases) {
    DuringTheFirstTurn turn;
    EXPECT_THAT(turn.EvaluatedAfter(c.change), ElementsAreArray(c.evaluated)) << c.what;
    EXPECT_EQ(turn.Runs(), c.runs) << c.what;
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
