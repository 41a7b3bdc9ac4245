// The AdSense page and the Account form: the accounts of the program.
#include "options/account.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "options/ad_sense_frame.h"
#include "retrieval/refresh_cycle.h"
#include "simulated/context_on_state.h"
#include "tray/tray_menu.h"

namespace quillbox {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

using Names = std::vector<std::string>;

// The page; account i signs in as "mail<i>" with "pass<i>".
class AccountTest : public ContextOnState {
 protected:
  AccountTest() { static_cast<AccountList&>(state_) = {}; }

  void Open(const Names& accounts, std::string_view primary = "") {
    BuildTraySubmenus(program_);
    for (std::size_t i = 0; i < accounts.size(); ++i) {
      state_.Accounts.push_back(accounts[i]);
      state_.Usernames.push_back("mail" + std::to_string(i));
      state_.Passwords.push_back("pass" + std::to_string(i));
    }
    store_.WriteSetting(kPrimaryAccount, primary);
    page_.LoadAdSenseFrame();
    mark_.OptionsChanged = false;
    mark_.ApplyButton.SetEnabled(false);
  }

  // Opens the form with the button, fills it in and presses OK.
  void Enter(Button& button, const std::string& name, const std::string& mail,
             const std::string& password) {
    button.Click();
    ASSERT_NE(Form(), nullptr);
    Form()->Text1.SetText(name);
    Form()->Text2.SetText(mail);
    Form()->Text3.SetText(password);
    Form()->Command1.Click();
  }
  void Add(const std::string& name) { Enter(page_.Command5, name, "m", "p"); }
  void Rename(const std::string& name) { Enter(page_.Command7, name, "m", "p"); }

  void Remove(BoxAnswer answer = BoxAnswer::kYes) {
    host_.Boxes.Add({.Answer = answer});
    page_.Command6.Click();
  }

  Account* Form() { return host_.Windows.Account(); }

  bool Changed() {
    return page_.AdSenseChanged && mark_.OptionsChanged && mark_.ApplyButton.Enabled();
  }

  void PutFigures(const std::string& account) {
    const AccountKeys keys(account);
    store_.WriteSetting(keys.Stats(), "figures of " + account);
    store_.WriteSetting(keys.Impressions(), "history of " + account);
  }
  std::string Stored(const std::string& key) { return store_.ReadSetting({"Accounts", key}); }

  ChangeMark mark_;
  AdSenseFrame page_{program_, mark_};
};

TEST_F(AccountTest, TheFirstAccountBecomesThePrimaryOne) {
  Open({}, "one");
  EXPECT_EQ(page_.Combo3.Text(), "");
  EXPECT_FALSE(page_.Command6.Enabled() || page_.Command7.Enabled());
  Add("one");
  EXPECT_EQ(page_.Combo3.Text(), "one");
  EXPECT_TRUE(page_.Command6.Enabled() && page_.Command7.Enabled() && Changed());
  EXPECT_EQ(store_.ReadSetting(kAccounts), "") << "before Apply";
  EXPECT_THAT(host_.Trace({"form", "hide", "close"}),
              ElementsAre("form Account", "hide Account", "close Account"));

  const std::size_t before = host_.Store.Batches().size();
  page_.Apply();
  ASSERT_THAT(host_.Store.Batches(), SizeIs(before + 1)) << "all of it in one batch";
  std::vector<std::string> written;
  for (const SettingChange& c : host_.Store.Batches().back()) written.push_back(c.Key + *c.Value);
  EXPECT_THAT(written, ElementsAre("PrimaryAccountone", "Accountsone", "Usernamesm", "Passwordsq"));
  EXPECT_THAT(OpenAccountMenu(state_), SizeIs(1));
  EXPECT_THAT(AccountsMenu(state_), SizeIs(1));
}

TEST_F(AccountTest, EditShowsTheAccountAndReplacesIt) {
  Open({"one", "two"}, "two");
  PutFigures("two");
  page_.Command7.Click();
  ASSERT_NE(Form(), nullptr);
  EXPECT_EQ(Form()->Caption, "Edit AdSense Account");
  EXPECT_EQ(Form()->AdSenseIndex, 1);
  EXPECT_EQ(Form()->Text1.Text() + Form()->Text2.Text() + Form()->Text3.Text(), "twomail1pass1");

  const std::size_t before = host_.Store.Batches().size();
  Form()->Text3.SetText("new");
  Form()->Command1.Click();
  EXPECT_THAT(host_.Store.Batches(), SizeIs(before)) << "the name is the same: nothing is stored";
  EXPECT_THAT(state_.Passwords, ElementsAre("pass0", "new"));
  EXPECT_TRUE(Changed());

  host_.Effects.Clear();
  Rename("three");
  EXPECT_THAT(host_.Trace({"store", "unset", "hide", "close"}),
              ElementsAre("store Accounts/three=figures of two", "unset Accounts/two",
                          "hide Account", "close Account"));
  EXPECT_THAT(state_.Accounts, ElementsAre("one", "three"));
  EXPECT_EQ(page_.Combo3.Text(), "three");
  EXPECT_EQ(Stored("three"), "figures of two");
  EXPECT_EQ(Stored("two"), "");
  EXPECT_EQ(Stored("two Impressions"), "history of two");
}

TEST_F(AccountTest, RefusalsLeaveTheFormOpenAndChangeNothing) {
  struct Case {
    bool Edit;  // the first of "one", "two Impressions"; else an account is added
    Names Fields;
    const char* Text;
  };
  const char* const kExists = "The entered account name already exists!";
  const Case kCases[] = {
      {false, {"", "", ""}, "You must complete the \"Account Name\" field!"},
      {false, {"a", "", ""}, "You must complete the \"E-mail Address\" field!"},
      {true, {"ONE", "m", ""}, "You must complete the \"Password\" field!"},
      {false, {"ONE", "m", "p"}, kExists},
      {true, {"ONE", "m", "p"}, kExists},
      {true, {"TWO impressions", "m", "p"}, kExists},
      {true, {"two", "m", "p"}, kExists},
      {false, {"a\x1A", "m", "p"}, "\"Account Name\" field holds a character that can't be stored"},
      {false, {"a|||b", "m", "p"}, "\"Account Name\" of the account \"a|||b\" can't be stored"},
      {true,
       {"one", "m", "basement"},
       "\"Password\" of the account \"one\" can't be stored: it would"},
      {false, {"a", "m", "basement"}, "Please change its last character or its length!"},
      {false,
       {"a", "m", std::string(200, 'p')},
       "\"Password\" of the account \"a\" can't be stored"},
  };
  Open({"one", "two Impressions"});
  for (const Case& c : kCases) {
    SCOPED_TRACE(testing::PrintToString(c.Fields));
    const std::size_t boxes = host_.Boxes.Shown().size();
    const std::size_t batches = host_.Store.Batches().size();
    Enter(c.Edit ? page_.Command7 : page_.Command5, c.Fields[0], c.Fields[1], c.Fields[2]);
    ASSERT_NE(Form(), nullptr);
    ASSERT_THAT(host_.Boxes.Shown(), SizeIs(boxes + 1));
    EXPECT_THAT(host_.Boxes.Shown().back().Text, HasSubstr(c.Text));
    EXPECT_EQ(host_.Boxes.Shown().back().Icon, BoxIcon::kExclamation);
    EXPECT_EQ(host_.Boxes.Shown().back().Title, "Quillbox");
    EXPECT_THAT(host_.Store.Batches(), SizeIs(batches));
    Form()->Command2.Click();
    EXPECT_EQ(Form(), nullptr);
  }
  state_.SettingsProfile = "ann";
  Add("a=b");
  EXPECT_NE(Form(), nullptr) << "a settings file can't carry it";
  EXPECT_THAT(state_.Accounts, ElementsAre("one", "two Impressions"));
  EXPECT_FALSE(page_.AdSenseChanged || mark_.OptionsChanged);
}

TEST_F(AccountTest, NoAccountKeepsOthersOut) {
  Open({"by hand|"});
  Add("be=hind");
  EXPECT_EQ(Form(), nullptr);
  EXPECT_THAT(state_.Accounts, ElementsAre("by hand|", "be=hind"));
  page_.Apply();
  const AccountList stored = LoadAccountList(store_);
  EXPECT_THAT(stored.Accounts, ElementsAre("be=hind", "by hand|"));
  EXPECT_THAT(stored.Usernames, ElementsAre("m", "mail0"));
  EXPECT_EQ(state_.Accounts, stored.Accounts);
}

TEST_F(AccountTest, ConnectPutsTheNameOfAGrantInThePlaceOfThePassword) {
  const GrantAnswer made{"grant:ABCDEFGHIJ27", ""}, none{"", "Access was not granted."};
  struct Case {
    GrantAnswer Answer;
    Button Account::*Closes;  // pressed before the answer is there
    const char* Password;
    std::size_t Boxes;
  };
  const Case kCases[] = {{made, nullptr, "grant:ABCDEFGHIJ27", 0},
                         {none, nullptr, "pass0", 1},
                         {made, &Account::Command1, "pass0", 0},
                         {made, &Account::StopWaiting, "pass0", 0},
                         {none, &Account::Command2, "pass0", 0}};
  Open({"one"});
  store_.WriteSetting(kProxyServer, "proxy.test");
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.Answer.Problem + (c.Closes != nullptr ? ", closed" : ", open"));
    const std::size_t boxes = host_.Boxes.Shown().size();
    state_.Passwords = {"pass0"};
    page_.Command7.Click();
    host_.Grants.Add({c.Answer, std::chrono::minutes(1)});
    Form()->Connect.Click();
    EXPECT_FALSE(Form()->Connect.Enabled());
    EXPECT_THAT(Form()->Waiting.Text(), EndsWith("there: 5 minutes left."));
    EXPECT_EQ(host_.Grants.Asked().back().Email, "mail0");
    EXPECT_EQ(host_.Grants.Asked().back().Environment.back().second, "http://proxy.test");
    if (c.Closes != nullptr) (Form()->*c.Closes).Click();
    EXPECT_EQ(host_.Grants.RunningCount(), c.Closes == nullptr ? 1U : 0U);
    host_.RunFor(std::chrono::minutes(2));
    EXPECT_THAT(host_.Boxes.Shown(), SizeIs(boxes + c.Boxes));
    if (Form() != nullptr) {
      EXPECT_TRUE(Form()->Connect.Enabled());
      EXPECT_FALSE(Form()->StopWaiting.Enabled());
      EXPECT_EQ(Form()->Waiting.Text(), "");
      Form()->Command1.Click();
    }
    EXPECT_THAT(state_.Passwords, ElementsAre(c.Password));
  }
  EXPECT_EQ(host_.Boxes.Shown().back().Text, none.Problem);
  EXPECT_EQ(host_.Boxes.Shown().back().Icon, BoxIcon::kExclamation);
}

TEST_F(AccountTest, ConnectCountsTheMinutesDown) {
  Open({"one"});
  page_.Command7.Click();
  host_.Grants.Add({{"", "No answer came in five minutes."}, std::chrono::minutes(7)});
  Form()->Connect.Click();
  for (const char* const left : {"5 minutes", "4 minutes", "3 minutes", "2 minutes", "1 minute",
                                 "less than a minute", "less than a minute"}) {
    EXPECT_THAT(Form()->Waiting.Text(), EndsWith(std::string("there: ") + left + " left."));
    host_.RunFor(std::chrono::minutes(1));
  }
  EXPECT_EQ(Form()->Waiting.Text(), "");
}

TEST_F(AccountTest, RemoveForgetsTheAccountAndItsFigures) {
  Open({"one", "two", "three"}, "two");
  PutFigures("two");
  PutFigures("three");
  Remove(BoxAnswer::kNo);
  EXPECT_THAT(state_.Accounts, SizeIs(3));
  EXPECT_FALSE(page_.AdSenseChanged);
  EXPECT_EQ(host_.Boxes.Shown().back().Text,
            "Are you want to remove the selected AdSense account?");
  EXPECT_EQ(host_.Boxes.Shown().back().Buttons, BoxButtons::kYesNo);

  Remove();
  EXPECT_THAT(state_.Accounts, ElementsAre("one", "three"));
  EXPECT_THAT(state_.Usernames, ElementsAre("mail0", "mail2"));
  EXPECT_THAT(state_.Passwords, ElementsAre("pass0", "pass2"));
  EXPECT_EQ(page_.Combo3.Text(), "three");
  EXPECT_EQ(Stored("two") + Stored("two Impressions"), "");
  EXPECT_EQ(Stored("three"), "figures of three");
  EXPECT_TRUE(Changed());

  Remove();
  Remove();
  EXPECT_THAT(page_.Combo3.Items(), IsEmpty());
  EXPECT_FALSE(page_.Command6.Enabled() || page_.Command7.Enabled());
  page_.Apply();
  for (const SettingKey& key : {kPrimaryAccount, kAccounts, kUsernames, kPasswords}) {
    EXPECT_EQ(store_.ReadSetting(key), "") << key.Key;
  }
}

TEST_F(AccountTest, AStoreThatIsDamagedDoesNoHarm) {
  Open({"one", "two"}, "gone");
  page_.Command7.Click();
  page_.Command6.Click();
  EXPECT_EQ(Form(), nullptr) << "none is selected";
  EXPECT_THAT(host_.Boxes.Shown(), IsEmpty());

  state_.Usernames = {"mail0", "mail1", "stray"};
  state_.Passwords.clear();  // one of them could not be unscrambled
  Add("three");
  EXPECT_THAT(state_.Usernames, ElementsAre("mail0", "mail1", "m"));
  EXPECT_THAT(state_.Passwords, ElementsAre("", "", "p"));

  state_.Passwords = {"pass0"};
  page_.Combo3.Select(0);
  Remove();
  EXPECT_THAT(state_.Accounts, ElementsAre("two", "three"));
  EXPECT_THAT(state_.Passwords, ElementsAre("", ""));

  page_.Combo3.Select(0);
  state_.Accounts = {"three"};
  page_.Command7.Click();
  EXPECT_EQ(Form(), nullptr) << "the selected one has gone meanwhile";
}

}  // namespace
}  // namespace quillbox
