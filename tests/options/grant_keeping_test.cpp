// Which grants are forgotten when the Options are gone.
#include <gmock/gmock.h>

#include <algorithm>
#include <map>

#include "options/open_options.h"

namespace quillbox {
namespace {

// A capital letter stands for a grant; anything else for a password.
std::string Password(const std::string& text) {
  const bool grant = text.size() == 1 && text[0] >= 'A' && text[0] <= 'Z';
  return grant ? "grant:" + std::string(12, text[0]) : text;
}

class GrantKeepingTest : public OpenOptions {
 protected:
  // "one=A two=x", which run and are stored.
  void Begin(const std::string& accounts) {
    host_.Connect(form_);
    host_.Store.SetKeeps(StoreKeeps::kAll);
    StartAfresh();
    static_cast<AccountList&>(state_) = {};
    for (const std::string& account : SplitText(accounts, " ")) {
      const std::size_t equals = account.find('=');
      state_.Accounts.push_back(account.substr(0, equals));
      state_.Usernames.emplace_back("m");
      state_.Passwords.push_back(Password(account.substr(equals + 1)));
    }
    SettingBatch stored;
    SaveAccountList(stored, state_);
    store_.WriteBatch(stored);
    forgottenBefore_ = host_.Grants.Forgotten().size();
    Open();
  }

  // What a person does, or what happens; several words have an argument.
  void Do(const std::string& step) {
    const std::size_t blank = std::min(step.find(' '), step.size());
    const std::string argument = step.substr(std::min(blank + 1, step.size()));
    kSteps.at(step.substr(0, blank))(*this, argument);
  }

  std::string Forgotten() const {
    std::string letters;
    const auto& all = host_.Grants.Forgotten();
    for (std::size_t i = forgottenBefore_; i < all.size(); ++i) letters += all[i].Name.back();
    return letters;
  }

  Account& Entry() { return *host_.Windows.Account(); }
  void Choose(const std::string& account) { Form().AdSenseFrame.Combo3.SelectText(account); }
  void Connect(const std::string& grant, std::chrono::minutes after) {
    host_.Grants.Add({{Password(grant), ""}, after});
    Entry().Connect.Click();
    host_.RunFor(std::chrono::seconds(1));
  }

  static void Add(GrantKeepingTest& test, const std::string& name) {
    test.Form().AdSenseFrame.Command5.Click();
    test.Entry().Text1.SetText(name);
    test.Entry().Text2.SetText("m");
  }
  static void Edit(GrantKeepingTest& test, const std::string& name) {
    test.Choose(name);
    test.Form().AdSenseFrame.Command7.Click();
  }
  static void Remove(GrantKeepingTest& test, const std::string& name) {
    test.Choose(name);
    test.host_.Boxes.Add({.Answer = BoxAnswer::kYes});
    test.Form().AdSenseFrame.Command6.Click();
  }
  static void LoseStore(GrantKeepingTest& test, const std::string&) {
    for (const auto& e : test.host_.Store.All()) test.host_.Store.Put(e.Section, e.Key, "");
  }

  using Step = void (*)(GrantKeepingTest&, const std::string&);
  static const std::map<std::string, Step> kSteps;

  std::size_t forgottenBefore_ = 0;
};

const std::map<std::string, GrantKeepingTest::Step> GrantKeepingTest::kSteps = {
    {"add", Add},
    {"edit", Edit},
    {"remove", Remove},
    {"name", [](auto& test, auto& text) { test.Entry().Text1.SetText(text); }},
    {"password", [](auto& test, auto& text) { test.Entry().Text3.SetText(Password(text)); }},
    {"connect", [](auto& test, auto& grant) { test.Connect(grant, std::chrono::minutes(0)); }},
    {"connect-late", [](auto& test, auto& grant) { test.Connect(grant, std::chrono::minutes(1)); }},
    {"accept", [](auto& test, auto&) { test.Entry().Command1.Click(); }},
    {"leave", [](auto& test, auto&) { test.Entry().Command2.Click(); }},
    {"wait", [](auto& test, auto&) { test.host_.RunFor(std::chrono::minutes(2)); }},
    {"apply", [](auto& test, auto&) { test.PressApply(); }},
    {"ok", [](auto& test, auto&) { test.Form().Command1.Click(); }},
    {"cancel", [](auto& test, auto&) { test.Form().Command2.Click(); }},
    {"close", [](auto& test, auto&) { test.host_.Windows.CloseBox(FormName::kOpts); }},
    {"exit", [](auto& test, auto&) { test.host_.Do([&test] { test.form_.Exit_Click(); }); }},
    {"open", [](auto& test, auto&) { test.Open(); }},
    {"keep-nothing", [](auto& test, auto&) { test.host_.Store.SetKeeps(StoreKeeps::kNothing); }},
    {"lose-store", LoseStore},
    {"spoil-passwords",
     [](auto& test, auto&) { test.host_.Store.Put("AdSense", "Passwords", "\x01\x01"); }},
};

TEST_F(GrantKeepingTest, ForgetsWhatNoAccountHoldsAnyMore) {
  struct Case {
    const char *Accounts, *Steps, *Forgotten;
  };
  const Case kCases[] = {
      {"one=A", "ok", ""},
      {"one=A two=B", "remove one; ok", "A"},
      {"one=A", "remove one; cancel", ""},
      {"one=A", "remove one; apply; cancel", "A"},
      {"one=A two=A", "remove one; ok", ""},
      {"one=A", "edit one; name uno; accept; ok", ""},
      {"one=A", "edit one; password x; accept; ok", "A"},
      {"one=A", "edit one; password x; accept; cancel", ""},
      {"one=A", "remove one; add two; password A; accept; ok", ""},
      {"one=x", "remove one; ok", ""},
      // What Connect... made.
      {"one=A", "edit one; connect B; accept; ok", "A"},
      {"one=A", "edit one; connect B; accept; cancel", "B"},
      {"one=A", "edit one; connect B; connect C; accept; ok", "AB"},
      {"one=A", "edit one; connect B; accept; apply; edit one; connect C; accept; cancel", "AC"},
      {"", "add one; connect A; leave; ok", "A"},
      {"", "add one; connect A; leave; close", "A"},
      {"", "add one; connect A; close", "A"},
      {"", "add one; connect A; exit", "A"},
      {"", "add one; connect-late A; leave; wait; ok", ""},
      // By the close box the list stays as edited until the program ends, and then is as stored.
      {"one=A", "remove one; close", ""},
      {"one=A two=x", "remove one; close; open; remove two; ok", "A"},
      {"", "add one; connect A; accept; close", ""},
      {"", "add one; connect A; accept; close; open; remove one; cancel", "A"},
      // Stores that can't be relied on.
      {"one=A", "keep-nothing; remove one; ok", ""},
      {"one=A", "remove one; lose-store; cancel", ""},
      {"one=A two=B", "remove one; spoil-passwords; cancel", ""},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(std::string(c.Accounts) + ": " + c.Steps);
    Begin(c.Accounts);
    for (const std::string& step : SplitText(c.Steps, "; ")) {
      Do(step);
      if (host_.Windows.Opts() != nullptr) {
        EXPECT_EQ(Forgotten(), "") << "too early: " << step;
      }
    }
    EXPECT_EQ(Forgotten(), c.Forgotten);
  }
}

TEST_F(GrantKeepingTest, TellsOfTheProxyAndTheTraceNamesTheGrant) {
  Begin("one=A");
  store_.WriteSetting(kProxyServer, "proxy.test");
  for (const char* const step : {"remove one", "ok"}) Do(step);
  ASSERT_EQ(Forgotten(), "A");
  EXPECT_EQ(host_.Grants.Forgotten().back().Environment.back().second, "http://proxy.test");
  EXPECT_THAT(host_.Trace({"grant"}), testing::ElementsAre("grant forget grant:AAAAAAAAAAAA"));
}

}  // namespace
}  // namespace quillbox
