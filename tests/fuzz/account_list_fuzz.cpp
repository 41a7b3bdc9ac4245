// Any accounts that a person enters, and any lists that a store may hold: what was taken comes back
// as it was entered, whatever others are there, and no other one keeps it out.
#include "config/account_list.h"
#include "config/profile_file.h"
#include "config/setting_keys.h"
#include "fuzz/fuzz_input.h"
#include "options/account.h"
#include "text/text_list.h"

namespace {

using namespace quillbox;

constexpr char kMark = '\x1F';

std::string ThroughFile(const SettingKey& key, const std::string& value) {
  const std::string file = WithProfileValue("", key.Section, key.Key, value);
  return ReadProfileValue(file, key.Section, key.Key).substr(0, kLongestProfileValue);
}

AccountList ComingBack(const AccountList& list, SettingsMode mode) {
  StoredAccountList stored = ToStoredForm(list);
  if (mode == SettingsMode::kFile) {
    stored = {ThroughFile(kAccounts, stored.Accounts), ThroughFile(kUsernames, stored.Usernames),
              ThroughFile(kPasswords, stored.Passwords)};
  }
  return FromStoredForm(stored);
}

void RequireEqual(const AccountList& a, const AccountList& b) {
  Require(a.Accounts == b.Accounts && a.Usernames == b.Usernames && a.Passwords == b.Passwords);
}

AccountList WithAnother(AccountList list, const std::string& name, const std::string& username,
                        const std::string& password) {
  list.Accounts.push_back(name);
  list.Usernames.push_back(username);
  list.Passwords.push_back(password);
  return list;
}

void CheckRefusal(const EntryFinding& finding, const AccountList& list, std::size_t entered,
                  SettingsMode mode) {
  // Alone it fares no better, but for what two have to share.
  const bool shared =
      finding.Problem == EntryProblem::kKeyTaken || finding.Problem == EntryProblem::kTooLong;
  const AccountList alone =
      WithAnother({}, list.Accounts[entered], list.Usernames[entered], list.Passwords[entered]);
  const auto again = FindEntryProblem(alone, 0, mode);
  Require(shared || (again && again->Problem == finding.Problem && again->Field == finding.Field));
}

// Entered one after the other, in front of one that must stand last or without it.
void CheckEntries(std::string_view in, SettingsMode mode, bool byHand) {
  AccountList list;
  if (byHand) list = {{"by hand"}, {"m"}, {"basement"}};
  while (!in.empty()) {
    const std::string name = TakeText(in, kMark), username = TakeText(in, kMark);
    const std::string password = TakeText(in, kMark);
    if (name.empty() || username.empty() || password.empty()) continue;
    AccountList more = WithAnother(list, name, username, password);
    const std::size_t entered = more.Accounts.size() - 1;
    if (const auto finding = FindEntryProblem(more, entered, mode)) {
      CheckRefusal(*finding, more, entered, mode);
    } else {
      list = std::move(more);
    }
  }
  const AccountList stored = InStorableOrder(list);
  RequireEqual(ComingBack(stored, mode), stored);
  if (!byHand) RequireEqual(stored, list);
  Require(stored.Accounts.size() == list.Accounts.size());
}

// What was loaded of anything at all is what its lists say, cut at the separators.
void CheckLoading(std::string_view in) {
  const std::string accounts = TakeText(in, kMark), usernames = TakeText(in, kMark);
  const AccountList list = FromStoredForm({accounts, usernames, std::string(in)});
  Require(JoinText(list.Accounts, kListSeparator) == accounts);
  Require(JoinText(list.Usernames, kListSeparator) == usernames);
  const StoredAccountList again = ToStoredForm(list);
  Require(again.Accounts == accounts);
  for (const std::string& password : list.Passwords) {
    Require(password.empty() || UnscrambleText(ScrambleText(password)) == password ||
            ScrambleText(password).empty());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view in = TextOf(data, size);
  const unsigned choice = TakeByte(in);
  const SettingsMode mode = (choice & 1) != 0 ? SettingsMode::kFile : SettingsMode::kPerUser;
  CheckEntries(in, mode, (choice & 2) != 0);
  CheckLoading(in);
  return 0;
}
