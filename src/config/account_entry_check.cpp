#include "config/account_entry_check.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "config/profile_file.h"
#include "config/setting_keys.h"
#include "text/letter_case.h"
#include "text/text_list.h"
#include "text/trimmed.h"

namespace quillbox {
namespace {

constexpr std::array kFields = {AccountField::kName, AccountField::kUsername,
                                AccountField::kPassword};

const std::vector<std::string>& ListOf(const AccountList& list, AccountField field) {
  switch (field) {
    case AccountField::kName:
      return list.Accounts;
    case AccountField::kUsername:
      return list.Usernames;
    case AccountField::kPassword:
      break;
  }
  return list.Passwords;
}

bool HoldsControlCharacter(std::string_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](unsigned char c) { return c < 0x20 || c == 0x7F; });
}

bool KeysCollide(const std::string& a, const std::string& b) {
  const AccountKeys keysA(a), keysB(b);
  return EqualIgnoringCase(keysA.Stats().Key, keysB.Impressions().Key) ||
         EqualIgnoringCase(keysA.Impressions().Key, keysB.Stats().Key);
}

bool KeyTaken(const AccountList& list, std::size_t entered) {
  for (std::size_t i = 0; i < list.Accounts.size(); ++i) {
    if (i != entered && KeysCollide(list.Accounts[i], list.Accounts[entered])) return true;
  }
  return false;
}

// What a settings file gives back for a value that was written into it.
std::string ThroughFile(const SettingKey& key, std::string_view value) {
  const std::string file = WithProfileValue("", key.Section, key.Key, value);
  return ReadProfileValue(file, key.Section, key.Key).substr(0, kLongestProfileValue);
}

// A file has no blanks round a key, so that two names could share one.
bool CanBeKeyOfFile(const std::string& name) {
  const AccountKeys keys(name);
  return Trimmed(name, kBlankAndTab) == name && ThroughFile(keys.Stats(), "x") == "x" &&
         ThroughFile(keys.Impressions(), "x") == "x";
}

bool ComesBack(const AccountList& list, SettingsMode mode) {
  StoredAccountList stored = ToStoredForm(list);
  if (mode == SettingsMode::kFile) {
    stored = {ThroughFile(kAccounts, stored.Accounts), ThroughFile(kUsernames, stored.Usernames),
              ThroughFile(kPasswords, stored.Passwords)};
  }
  const AccountList loaded = FromStoredForm(stored);
  return loaded.Accounts == list.Accounts && loaded.Usernames == list.Usernames &&
         loaded.Passwords == list.Passwords;
}

// Of one field of one account, in a list that doesn't come back.
std::optional<EntryProblem> ProblemOf(const AccountList& list, AccountField field,
                                      std::size_t account) {
  const std::string& text = ListOf(list, field)[account];
  const bool isPassword = field == AccountField::kPassword;
  const std::string stored = isPassword ? ScrambleText(text) : text;
  if (stored.empty() && !text.empty()) return EntryProblem::kPasswordRange;

  const auto either = [&](auto test) { return test(text) || test(stored); };
  if (either([](const std::string& s) { return s.find(kListSeparator) != std::string::npos; })) {
    return EntryProblem::kThreeBars;
  }
  const bool isLast = account + 1 == list.Accounts.size();
  if (!isLast && either([](const std::string& s) { return s.ends_with('|'); })) {
    return EntryProblem::kMustStandLast;
  }
  return std::nullopt;
}

// Why the list doesn't come back.
EntryFinding Cause(const AccountList& list, std::size_t entered) {
  for (std::size_t account = 0; account < list.Accounts.size(); ++account) {
    for (const AccountField field : kFields) {
      if (const auto problem = ProblemOf(list, field, account)) return {*problem, field, account};
    }
  }
  const StoredAccountList stored = ToStoredForm(list);
  const std::array lengths = {stored.Accounts.size(), stored.Usernames.size(),
                              stored.Passwords.size()};
  for (std::size_t i = 0; i < kFields.size(); ++i) {
    if (lengths[i] > kLongestProfileValue) return {EntryProblem::kTooLong, kFields[i], entered};
  }
  return {EntryProblem::kNotKept, AccountField::kName, entered};
}

}  // namespace

std::optional<EntryFinding> FindEntryProblem(const AccountList& list, std::size_t entered,
                                             SettingsMode mode) {
  for (const AccountField field : kFields) {
    if (HoldsControlCharacter(ListOf(list, field)[entered])) {
      return EntryFinding{EntryProblem::kCharacter, field, entered};
    }
  }
  const auto ofName = [entered](EntryProblem problem) {
    return EntryFinding{problem, AccountField::kName, entered};
  };
  if (KeyTaken(list, entered)) return ofName(EntryProblem::kKeyTaken);
  if (mode == SettingsMode::kFile && !CanBeKeyOfFile(list.Accounts[entered])) {
    return ofName(EntryProblem::kNoKey);
  }
  if (ComesBack(list, mode)) return std::nullopt;
  return Cause(list, entered);
}

}  // namespace quillbox
