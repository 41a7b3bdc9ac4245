#include "config/account_list.h"

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
      {{{"a"}, {"m"}, {"p"}}, kFile, {}},
      {{{"a\tb"}, {"m"}, {"p"}}, kPerUser, kCharacter},
      {{{"a"}, {"m\x1A"}, {"p"}}, kPerUser, kCharacter, kUsername},
      {{{"a"}, {"m"}, {"\x7F"}}, kPerUser, kCharacter, kSecret},
      // keys
      {{{"a", "A IMPRESSIONS"}, {"m", "m"}, {"p", "p"}}, kPerUser, kKeyTaken},
      {{{"a Impressions", "A"}, {"m", "m"}, {"p", "p"}}, kPerUser, kKeyTaken},
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
      {{{"a"}, {"m"}, {"{zy"}}, kPerUser, kThreeBars, kSecret},  // scrambled
      {{{"a"}, {"m"}, {"a|||"}}, kPerUser, kThreeBars, kSecret},
      {{{"||a"}, {"|m"}, {"||p"}}, kFile, {}},
      {{{"a|"}, {"m"}, {"p"}}, kPerUser, kBarAtEnd},
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

class RandomAccounts : public testing::TestWithParam<SettingsMode> {
 protected:
  std::string Text() {
    static constexpr std::string_view kLetters = "||||zy{a =[\";\xE9\xFF";
    std::string text(1, kLetters[random_() % kLetters.size()]);
    while (random_() % 4 != 0) text += kLetters[random_() % kLetters.size()];
    return text;
  }

  // An account behind those that are there.
  AccountList WithAnother(AccountList list) {
    list.Accounts.push_back(Text());
    list.Usernames.push_back(Text());
    list.Passwords.push_back(Text());
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

// Behind it stands an account that could be the first of anything.
TEST_P(RandomAccounts, PassExactlyWhenTheyComeBackInFrontOfOthers) {
  int passed = 0, refused = 0;
  for (int round = 0; round < 5000; ++round) {
    AccountList list = WithAnother({});
    const auto found = FindEntryProblem(list, 0, GetParam());
    if (found && (found->Problem == kKeyTaken || found->Problem == kNoKey)) continue;
    for (auto* entries : {&list.Accounts, &list.Usernames, &list.Passwords}) {
      entries->emplace_back("|x");
    }
    EXPECT_EQ(!found, ComesBack(list))
        << testing::PrintToString(list.Accounts) << testing::PrintToString(list.Usernames)
        << testing::PrintToString(list.Passwords);
    ++(found ? refused : passed);
  }
  EXPECT_GT(passed, 200);
  EXPECT_GT(refused, 200);
}

INSTANTIATE_TEST_SUITE_P(BothModes, RandomAccounts, testing::Values(kPerUser, kFile));

}  // namespace
}  // namespace quillbox
