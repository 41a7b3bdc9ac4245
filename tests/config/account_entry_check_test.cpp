#include "config/account_entry_check.h"

#include <gmock/gmock.h>

#include <random>

#include "simulated/simulated_files.h"
#include "simulated/simulated_store.h"

namespace quillbox {
namespace {

using enum AccountField;
using enum EntryProblem;

constexpr SettingsMode kPerUser = SettingsMode::kPerUser;
constexpr SettingsMode kFile = SettingsMode::kFile;

TEST(AccountEntryCheck, NamesTheProblemAndItsAccount) {
  const std::string a749(749, 'a'), a375(375, 'a'), a371(371, 'a');
  const std::string tooFar = std::string(22, 'a') + "\xE9";
  struct Case {
    AccountList List;  // the last account is the entered one
    SettingsMode Mode;
    std::optional<EntryProblem> Problem;
    std::size_t Account = 0;
    AccountField Field = kName;
  };
  const Case kCases[] = {
      {{{"a"}, {"m"}, {"p"}}, kFile, {}},
      {{{"a\tb"}, {"m"}, {"p"}}, kPerUser, kCharacter},
      {{{"a"}, {"m\x1A"}, {"p"}}, kPerUser, kCharacter, 0, kUsername},
      {{{"a"}, {"m"}, {"\x7F"}}, kPerUser, kCharacter, 0, kPassword},
      // keys
      {{{"a", "A IMPRESSIONS"}, {"m", "m"}, {"p", "p"}}, kPerUser, kKeyTaken, 1},
      {{{"a Impressions", "A"}, {"m", "m"}, {"p", "p"}}, kPerUser, kKeyTaken, 1},
      {{{"a Impressions"}, {"m"}, {"p"}}, kPerUser, {}},
      {{{"a=b"}, {"m"}, {"p"}}, kFile, kNoKey},
      {{{"a=b"}, {"m"}, {"p"}}, kPerUser, {}},
      {{{"[a"}, {"m"}, {"p"}}, kFile, kNoKey},
      {{{";a"}, {"m"}, {"p"}}, kFile, kNoKey},
      {{{" a"}, {"m"}, {"p"}}, kFile, kNoKey},
      {{{"a "}, {"m"}, {"p"}}, kFile, kNoKey},
      {{{" "}, {"m"}, {"p"}}, kPerUser, {}},
      {{{"a;[] b"}, {" =m "}, {" p "}}, kFile, {}},
      // bars
      {{{"a|||b"}, {"m"}, {"p"}}, kPerUser, kThreeBars},
      {{{"a"}, {"m"}, {"{zy"}}, kPerUser, kThreeBars, 0, kPassword},  // scrambled
      {{{"a"}, {"m"}, {"a|||"}}, kPerUser, kThreeBars, 0, kPassword},
      {{{"||a", "|b||"}, {"|m", "m||"}, {"||p", "p|"}}, kFile, {}},
      {{{"a|", "b"}, {"m", "m"}, {"p", "p"}}, kPerUser, kMustStandLast, 0},
      {{{"a", "b"}, {"m|", "m"}, {"p", "p"}}, kPerUser, kMustStandLast, 0, kUsername},
      {{{"a", "b"}, {"m", "m"}, {"p|", "p"}}, kPerUser, kMustStandLast, 0, kPassword},
      {{{"a", "b", "c"}, {"m", "m", "m"}, {"p", "sunlight", "p"}},
       kPerUser,
       kMustStandLast,
       1,
       kPassword},
      {{{"a", "b"}, {"m", "m"}, {"p", "sunlight"}}, kPerUser, {}},
      // range and length
      {{{"a"}, {"m"}, {tooFar}}, kPerUser, kPasswordRange, 0, kPassword},
      {{{"a"}, {a749}, {"p"}}, kFile, {}},
      {{{"a"}, {a749 + "b"}, {"p"}}, kFile, kTooLong, 0, kUsername},
      {{{"a"}, {a749 + "b"}, {"p"}}, kPerUser, {}},
      {{{a375, "b"}, {"m", a375}, {"p", "p"}}, kFile, {}},
      {{{"a", "b"}, {a375, a371}, {"p", "p"}}, kFile, {}},
      {{{"a", "b"}, {a375, a371 + "b"}, {"p", "p"}}, kFile, kTooLong, 1, kUsername},
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
    EXPECT_EQ(found->Account, c.Account) << row;
    EXPECT_EQ(found->Field, c.Field) << row;
  }
}

class RandomAccounts : public testing::TestWithParam<SettingsMode> {
 protected:
  std::string Text() {
    static constexpr std::string_view kLetters = "||||zy{a =[\";\xE9\xFF";
    std::string text(1, kLetters[random_() % kLetters.size()]);
    while (random_() % 4 != 0) text += kLetters[random_() % kLetters.size()];
    return text;
  }

  AccountList List() {
    AccountList list;
    for (std::size_t count = 1 + random_() % 3; count > 0; --count) {
      list.Accounts.push_back(Text());
      list.Usernames.push_back(Text());
      list.Passwords.push_back(Text());
    }
    return list;
  }

  // Through a whole store.
  bool ComesBack(const AccountList& list) {
    SimulatedStore userStore;
    SimulatedFiles files;
    const ApplicationFolder folder("/app", "/app", '/');
    const std::string profile = GetParam() == kFile ? "ann" : "";
    SettingsStore store(userStore, files, folder, profile);
    SettingBatch batch;
    SaveAccountList(batch, list);
    store.WriteBatch(batch);
    const AccountList loaded = LoadAccountList(store);
    return loaded.Accounts == list.Accounts && loaded.Usernames == list.Usernames &&
           loaded.Passwords == list.Passwords;
  }

  std::mt19937_64 random_{7};
};

TEST_P(RandomAccounts, PassExactlyWhenTheyComeBack) {
  int passed = 0, refused = 0;
  for (int round = 0; round < 5000; ++round) {
    const AccountList list = List();
    const auto found = FindEntryProblem(list, list.Accounts.size() - 1, GetParam());
    if (found && (found->Problem == kKeyTaken || found->Problem == kNoKey)) continue;
    EXPECT_EQ(!found, ComesBack(list))
        << testing::PrintToString(list.Accounts) << testing::PrintToString(list.Usernames)
        << testing::PrintToString(list.Passwords);
    EXPECT_FALSE(found && found->Problem == kNotKept) << "there is a better word for it";
    ++(found ? refused : passed);
  }
  EXPECT_GT(passed, 200);
  EXPECT_GT(refused, 200);
}

INSTANTIATE_TEST_SUITE_P(BothModes, RandomAccounts, testing::Values(kPerUser, kFile));

}  // namespace
}  // namespace quillbox
