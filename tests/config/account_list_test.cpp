#include "config/account_list.h"

#include <gmock/gmock.h>

#include "simulated/simulated_files.h"
#include "simulated/simulated_store.h"

namespace quillbox {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(ScrambleText, MovesEachCodeByItsPosition) {
  struct Case {
    std::string Clear, Scrambled;
  };
  const Case kCases[] = {
      {"", ""},
      {"a", "b"},
      {"abc", "bdf"},
      {"az", "b|"},
      {"sunlight", "twqpnmo|"},  // ends in a bar
      {"\xE9", "\xEA"},
      {std::string(21, 'a') + "\xE9", "bcdefghijklmnopqrstuv\xFF"},
      {std::string("\0", 1), "\x01"},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(ScrambleText(c.Clear), c.Scrambled) << c.Clear;
    EXPECT_EQ(UnscrambleText(c.Scrambled), c.Clear) << c.Scrambled;
  }
}

TEST(ScrambleText, OutsideOfItsRangeNothingComes) {
  EXPECT_NE(ScrambleText(std::string(129, '~')), "");
  EXPECT_EQ(ScrambleText(std::string(130, '~')), "");
  EXPECT_EQ(ScrambleText(std::string(22, 'a') + "\xE9"), "");
  EXPECT_EQ(ScrambleText(std::string(1000, '\0')), "");
  EXPECT_EQ(UnscrambleText(std::string(1, '\0')), "");
  EXPECT_EQ(UnscrambleText("b\x01"), "");
  EXPECT_EQ(UnscrambleText(std::string(1000, '\xFF')), "");
}

class AccountListTest : public ::testing::Test {
 protected:
  AccountList SavedAndLoaded(const AccountList& list) {
    SettingBatch batch;
    SaveAccountList(batch, list);
    store.WriteBatch(batch);
    return LoadAccountList(store);
  }

  SimulatedStore userStore;
  SimulatedFiles files;
  ApplicationFolder folder{"/program", "/data", '/'};
  std::string profile;
  SettingsStore store{userStore, files, folder, profile};
};

TEST_F(AccountListTest, ComesBackInBothModes) {
  const AccountList list = {{"one", "a|b"}, {"a@x.test", "b@x.test"}, {"secret", "secret"}};
  for (const char* mode : {"", "ann"}) {
    profile = mode;
    EXPECT_THAT(SavedAndLoaded({}).Passwords, IsEmpty()) << mode;
    const AccountList loaded = SavedAndLoaded(list);
    EXPECT_EQ(loaded.Accounts, list.Accounts) << mode;
    EXPECT_EQ(loaded.Usernames, list.Usernames) << mode;
    EXPECT_EQ(loaded.Passwords, list.Passwords) << mode;
    EXPECT_EQ(store.ReadSetting(kPasswords), "tgfvjz|||tgfvjz") << mode;
  }
}

TEST_F(AccountListTest, IsStoredInItsOrderForEachAccount) {
  SettingBatch batch;
  SaveAccountList(batch, {{"one", "two"}, {"a@x.test"}, {"abc", "abc", "stray"}});
  std::vector<std::string> written;
  for (const SettingChange& c : batch.Changes()) written.push_back(c.Key + "=" + *c.Value);
  EXPECT_THAT(written,
              ElementsAre("Accounts=one|||two", "Usernames=a@x.test|||", "Passwords=bdf|||bdf"));
}

TEST_F(AccountListTest, DamagedStoresMixNothingUp) {
  struct Case {
    const char* Usernames;
    std::string Passwords;
    std::vector<std::string> LoadedPasswords;
    const char *SecondUsername, *SecondPassword;
  };
  const Case kCases[] = {
      {"a|||b", "bdf|||bdf", {"abc", "abc"}, "b", "abc"},
      {"a|||b", "bdf|||b\x01", {}, "b", ""},  // one of them can't be unscrambled
      {"a|||b", "\x01\x01|||bdf", {}, "b", ""},
      {"a|||b", "bdf||", {"abcxw"}, "b", ""},
      // "sunlight", whose stored form ends in a bar, gives it to the next one
      {"a|||b", "twqpnmo||||bdf", {"sunligh", "{`ab"}, "b", "{`ab"},
      {"a", "bdf", {"abc"}, "", ""},  // cut lists
      {"", "", {}, "", ""},
      {"a|||", "bdf|||", {"abc", ""}, "", ""},
  };
  store.WriteSetting(kAccounts, "one|||two");
  for (const Case& c : kCases) {
    store.WriteSetting(kUsernames, c.Usernames);
    store.WriteSetting(kPasswords, c.Passwords);
    const AccountList loaded = LoadAccountList(store);
    const std::string row = ::testing::PrintToString(c.Passwords);
    EXPECT_THAT(loaded.Accounts, ElementsAre("one", "two")) << row;
    EXPECT_EQ(loaded.Passwords, c.LoadedPasswords) << row;
    EXPECT_EQ(loaded.UsernameAt(1), c.SecondUsername) << row;
    EXPECT_EQ(loaded.PasswordAt(1), c.SecondPassword) << row;
    EXPECT_EQ(loaded.PasswordAt(99), "") << row;
  }
}

TEST_F(AccountListTest, TheProxysCredentialsAreScrambled) {
  EXPECT_EQ(ReadProxyUsername(store), "");
  EXPECT_EQ(ReadProxyPassword(store), "");
  SaveProxyUsername(store, "abc");
  SaveProxyPassword(store, "sunlight");
  EXPECT_EQ(store.ReadSetting(kProxyUsername), "bdf");
  EXPECT_EQ(ReadProxyUsername(store), "abc");
  EXPECT_EQ(ReadProxyPassword(store), "sunlight");
}

using enum AccountField;
using enum EntryProblem;

constexpr SettingsMode kPerUser = SettingsMode::kPerUser;
constexpr SettingsMode kFile = SettingsMode::kFile;

TEST(AccountEntryCheck, NamesTheProblemAndItsField) {
  const std::string a749(749, 'a'), a375(375, 'a'), a371(371, 'a');
  const std::string tooFar = std::string(22, 'a') + "\xE9";
  struct Case {
    AccountList List;  // the last account is the entered one
    SettingsMode Mode;
    std::optional<EntryProblem> Problem;
    AccountField Field = kName;
  };
  const Case kCases[] = {
      {{{"a\tb"}, {"m"}, {"p"}}, kPerUser, kCharacter},
      {{{"a"}, {"m\x1A"}, {"p"}}, kPerUser, kCharacter, kUsername},
      {{{"a"}, {"m"}, {"\x7F"}}, kPerUser, kCharacter, kSecret},
      // keys
      {{{"a", "A IMPRESSIONS"}, {"m", "m"}, {"p", "p"}}, kPerUser, kKeyTaken},
      {{{"a Impressions"}, {"m"}, {"p"}}, kPerUser, {}},
      {{{"a=b"}, {"m"}, {"p"}}, kFile, kNoKey},
      {{{"a=b"}, {"m"}, {"p"}}, kPerUser, {}},
      {{{"[a"}, {"m"}, {"p"}}, kFile, kNoKey},
      {{{";a"}, {"m"}, {"p"}}, kFile, kNoKey},
      {{{" a"}, {"m"}, {"p"}}, kFile, kNoKey},
      {{{"a "}, {"m"}, {"p"}}, kFile, kNoKey},
      // bars
      {{{"a|||b"}, {"m"}, {"p"}}, kPerUser, kThreeBars},
      {{{"a"}, {"m"}, {"{zy"}}, kPerUser, kThreeBars, kSecret},  // scrambled
      {{{"a"}, {"m"}, {"a|||"}}, kPerUser, kThreeBars, kSecret},
      {{{"||a"}, {"|m"}, {"||p"}}, kFile, {}},
      {{{"a"}, {"m|"}, {"p"}}, kFile, kBarAtEnd, kUsername},
      {{{"a"}, {"m"}, {"p|"}}, kPerUser, kBarAtEnd, kSecret},
      {{{"a"}, {"m"}, {"basement"}}, kPerUser, kBarAtEnd, kSecret},
      // others are none of the entered one's fault
      {{{"a|", "b"}, {"m||", "m"}, {"basement", "p"}}, kFile, {}},
      {{{"a", "b"}, {"m", "m"}, {"{zy", "p"}}, kPerUser, {}},
      // range and length
      {{{"a"}, {"m"}, {tooFar}}, kPerUser, kPasswordRange, kSecret},
      {{{"a"}, {a749}, {"p"}}, kFile, {}},
      {{{"a"}, {a749 + "b"}, {"p"}}, kFile, kTooLong, kUsername},
      {{{"a"}, {a749 + "b"}, {"p"}}, kPerUser, {}},
      {{{a375, "b"}, {"m", a375}, {"p", "p"}}, kFile, {}},
      {{{"a", "b"}, {a375, a371}, {"p", "p"}}, kFile, {}},
      {{{"a", "b"}, {a375, a371 + "b"}, {"p", "p"}}, kFile, kTooLong, kUsername},
      // what a damaged store left empty doesn't keep others out
      {{{"a", "b"}, {"", "m"}, {"", "p"}}, kFile, {}},
  };
  for (const Case& c : kCases) {
    const auto found = FindEntryProblem(c.List, c.List.Accounts.size() - 1, c.Mode);
    const std::string row = testing::PrintToString(c.List.Accounts) +
                            testing::PrintToString(c.List.Usernames) +
                            testing::PrintToString(c.List.Passwords);
    ASSERT_EQ(found.has_value(), c.Problem.has_value()) << row;
    if (!found) continue;
    EXPECT_EQ(found->Problem, *c.Problem) << row;
    EXPECT_EQ(found->Field, c.Field) << row;
  }
}

}  // namespace
}  // namespace quillbox
