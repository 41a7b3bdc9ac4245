// Accounts that change while a cycle walks over them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "retrieval/refresh_cycle.h"
#include "simulated/sample_report.h"
#include "simulated/simulated_program.h"
#include "tray/tray_menu.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;
using testing::SizeIs;

// The cycle on a state that the test owns, as the Options dialog does.
class ChangingAccounts : public testing::Test {
 protected:
  ChangingAccounts() {
    host_.Store.Put("TrayTooltip", "DataToDownload", "AdSense for Content");
    host_.Agents.Always(Answers("0"));
    state_.Accounts = {"one", "two", "three"};
    state_.Usernames = {"ann", "bob", "cyd"};
    state_.Passwords = {"x", "y", "z"};
    BuildTraySubmenus(program_);
  }

  template <typename Change>
  void RefreshAndChange(std::chrono::milliseconds when, const Change& change) {
    host_.After(when, [this, change] { change(state_); });
    host_.Do([this] { RefreshAllAccounts(program_); });
  }

  bool WasEvaluated(const char* account) { return !host_.Store.Read("Accounts", account).empty(); }

  SimulatedHost host_;
  AppState state_;
  ApplicationFolder folder_{"/app", "/app", '/'};
  RegionalSettings region_;
  BuildValues build_{"h.test", "h.test", "https://m.test", "a@m.test", "1.3.0"};
  Host ports_ = host_.Ports();
  SettingsStore store_{host_.Store, host_.Files, folder_, state_.SettingsProfile};
  ProgramContext program_{state_, store_, ports_, folder_, region_, build_};
};

TEST_F(ChangingAccounts, AListThatShrinksEndsTheWalk) {
  RefreshAndChange(100ms, [](AppState& state) {
    state.Accounts.resize(1);
    state.Usernames.resize(1);
    state.Passwords.resize(1);
  });
  EXPECT_THAT(host_.Agents.Starts(), SizeIs(1));
  EXPECT_TRUE(WasEvaluated("one"));
}

TEST_F(ChangingAccounts, AListThatIsEmptiedStoresNothing) {
  RefreshAndChange(100ms, [](AppState& state) { static_cast<AccountList&>(state) = {}; });
  EXPECT_THAT(host_.Agents.Starts(), SizeIs(1));
  EXPECT_FALSE(WasEvaluated("one"));
  EXPECT_FALSE(state_.RefreshRunning);
}

TEST_F(ChangingAccounts, AnAccountRemovedInItsTurnGivesItsFiguresToNobody) {
  RefreshAndChange(100ms, [](AppState& state) {
    state.Accounts.erase(state.Accounts.begin());
    state.Usernames.erase(state.Usernames.begin());
    state.Passwords.erase(state.Passwords.begin());
  });
  EXPECT_FALSE(WasEvaluated("one"));
  EXPECT_TRUE(WasEvaluated("three"));
}

TEST_F(ChangingAccounts, ARenamedAccountGetsNoFiguresUnderItsOldName) {
  RefreshAndChange(100ms, [](AppState& state) { state.Accounts[0] = "uno"; });
  EXPECT_FALSE(WasEvaluated("one"));
  EXPECT_FALSE(WasEvaluated("uno"));
  EXPECT_TRUE(WasEvaluated("two"));
}

TEST_F(ChangingAccounts, ANameThatNowStandsForAnotherAccountIsLeftAlone) {
  RefreshAndChange(100ms, [](AppState& state) { state.Usernames[0] = "dan"; });
  EXPECT_FALSE(WasEvaluated("one"));
}

TEST_F(ChangingAccounts, AnAccountAddedDuringTheCycleWaitsForTheNext) {
  RefreshAndChange(100ms, [](AppState& state) {
    state.Accounts.push_back("four");
    state.Usernames.push_back("eve");
    state.Passwords.push_back("w");
  });
  EXPECT_THAT(host_.Agents.Starts(), SizeIs(3));
  EXPECT_FALSE(WasEvaluated("four"));
}

TEST_F(ChangingAccounts, ShortListsOfNamesAndPasswordsReadAsEmpty) {
  state_.Usernames.resize(1);
  state_.Passwords.clear();
  host_.Do([this] { RefreshAllAccounts(program_); });
  ASSERT_THAT(host_.Agents.Starts(), SizeIs(3));
  EXPECT_THAT(host_.Agents.Starts()[0].Text, testing::StartsWith("Email=%61%6e%6e&Passwd=%#%"));
  EXPECT_THAT(host_.Agents.Starts()[2].Text, testing::StartsWith("Email=&Passwd=%#%"));
}

TEST_F(ChangingAccounts, ASettingChangedDuringTheCycleCountsFromTheNext) {
  RefreshAndChange(
      100ms, [this](AppState&) { host_.Store.Put("TrayTooltip", "DataToDownload", "Referrals"); });
  for (const AgentStart& start : host_.Agents.Starts()) {
    EXPECT_THAT(start.Text, testing::HasSubstr("/app/Content.dat"));
  }
}

}  // namespace
}  // namespace quillbox
