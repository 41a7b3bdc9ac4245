#include "config/account_list.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "config/profile_file.h"
#include "config/setting_keys.h"
#include "text/code_page.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

// Each code moved by its position, counted from 1, times `direction`; empty when one leaves 0 to
// 255.
std::string Shifted(std::string_view text, int direction) {
  constexpr std::size_t kCodes = 256;
  if (text.size() >= kCodes) return {};  // no code can be moved that far

  std::string shifted;
  shifted.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const int code = static_cast<unsigned char>(text[i]) + direction * static_cast<int>(i + 1);
    if (code < 0 || code > 255) return {};
    shifted += static_cast<char>(code);
  }
  return shifted;
}

std::string EntryAt(const std::vector<std::string>& list, std::size_t index) {
  return index < list.size() ? list[index] : std::string();
}

// Joined in, joined out; empty when any of them can't be unscrambled.
std::string ClearPasswords(std::string_view stored) {
  std::vector<std::string> passwords = SplitText(stored, kListSeparator);
  for (std::string& password : passwords) {
    const bool wasEmpty = password.empty();
    password = UnscrambleText(password);
    if (password.empty() && !wasEmpty) return {};
  }
  return JoinText(passwords, kListSeparator);
}

constexpr std::array kFields = {AccountField::kName, AccountField::kUsername,
                                AccountField::kSecret};

const std::vector<std::string>& ListOf(const AccountList& list, AccountField field) {
  switch (field) {
    case AccountField::kName:
      return list.Accounts;
    case AccountField::kUsername:
      return list.Usernames;
    case AccountField::kSecret:
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

std::string StoredFieldOf(const std::string& text, AccountField field) {
  return field == AccountField::kSecret ? ScrambleText(text) : text;
}

// A password is cut in both its forms: as it is stored, and in clear when it has been loaded.
bool EndsInBar(const std::string& text, AccountField field) {
  return text.ends_with('|') || StoredFieldOf(text, field).ends_with('|');
}

bool HoldsSeparator(std::string_view text) {
  return text.find(kListSeparator) != std::string_view::npos;
}

// Of a field, wherever in the lists its account comes to stand.
std::optional<EntryProblem> ProblemOf(const std::string& text, AccountField field) {
  const std::string stored = StoredFieldOf(text, field);
  if (stored.empty() && !text.empty()) return EntryProblem::kPasswordRange;
  if (HoldsSeparator(text) || HoldsSeparator(stored)) return EntryProblem::kThreeBars;
  if (EndsInBar(text, field)) return EntryProblem::kBarAtEnd;
  return std::nullopt;
}

// The first list that a line of a settings file can't hold.
std::optional<AccountField> TooLongForFile(const AccountList& list) {
  const StoredAccountList stored = ToStoredForm(list);
  const std::array lengths = {stored.Accounts.size(), stored.Usernames.size(),
                              stored.Passwords.size()};
  for (std::size_t i = 0; i < kFields.size(); ++i) {
    if (lengths[i] > kLongestProfileValue) return kFields[i];
  }
  return std::nullopt;
}

}  // namespace

std::string AccountList::UsernameAt(std::size_t index) const {
  return EntryAt(Usernames, index);
}
std::string AccountList::PasswordAt(std::size_t index) const {
  return EntryAt(Passwords, index);
}

std::string ScrambleText(std::string_view text) {
  return Shifted(text, 1);
}
std::string UnscrambleText(std::string_view text) {
  return Shifted(text, -1);
}

StoredAccountList ToStoredForm(const AccountList& list) {
  std::vector<std::string> usernames, scrambled;
  for (std::size_t i = 0; i < list.Accounts.size(); ++i) {
    usernames.push_back(list.UsernameAt(i));
    scrambled.push_back(ScrambleText(list.PasswordAt(i)));
  }
  return {JoinText(list.Accounts, kListSeparator), JoinText(usernames, kListSeparator),
          JoinText(scrambled, kListSeparator)};
}

AccountList FromStoredForm(const StoredAccountList& stored) {
  return {SplitText(stored.Accounts, kListSeparator), SplitText(stored.Usernames, kListSeparator),
          SplitText(ClearPasswords(stored.Passwords), kListSeparator)};
}

std::string LoadAccountPasswords(const SettingsStore& store) {
  return ClearPasswords(store.ReadSetting(kPasswords));
}

AccountList LoadAccountList(const SettingsStore& store) {
  return FromStoredForm(
      {store.ReadSetting(kAccounts), store.ReadSetting(kUsernames), store.ReadSetting(kPasswords)});
}

void SaveAccountList(SettingBatch& batch, const AccountList& list) {
  const StoredAccountList stored = ToStoredForm(list);
  batch.Write(kAccounts, stored.Accounts)
      .Write(kUsernames, stored.Usernames)
      .Write(kPasswords, stored.Passwords);
}

std::string ReadProxyUsername(const SettingsStore& store) {
  return UnscrambleText(store.ReadSetting(kProxyUsername));
}

std::string ReadProxyPassword(const SettingsStore& store) {
  return UnscrambleText(store.ReadSetting(kProxyPassword));
}

void SaveProxyUsername(SettingsStore& store, std::string_view username) {
  store.WriteSetting(kProxyUsername, ScrambleText(username));
}

void SaveProxyPassword(SettingsStore& store, std::string_view password) {
  store.WriteSetting(kProxyPassword, ScrambleText(password));
}

std::optional<EntryFinding> FindEntryProblem(const AccountList& list, std::size_t entered,
                                             SettingsMode mode) {
  for (const AccountField field : kFields) {
    if (HoldsControlCharacter(ListOf(list, field)[entered])) {
      return EntryFinding{EntryProblem::kCharacter, field};
    }
  }
  const bool inFile = mode == SettingsMode::kFile;
  if (KeyTaken(list, entered)) return EntryFinding{EntryProblem::kKeyTaken, AccountField::kName};
  if (inFile && !CanBeKeyOfFile(list.Accounts[entered])) {
    return EntryFinding{EntryProblem::kNoKey, AccountField::kName};
  }
  for (const AccountField field : kFields) {
    if (const auto problem = ProblemOf(ListOf(list, field)[entered], field)) {
      return EntryFinding{*problem, field};
    }
  }
  const auto tooLong = inFile ? TooLongForFile(list) : std::nullopt;
  if (tooLong) return EntryFinding{EntryProblem::kTooLong, *tooLong};
  return std::nullopt;
}

AccountList InStorableOrder(const AccountList& list) {
  const auto mustStandLast = [&list](std::size_t i) {
    return EndsInBar(list.Accounts[i], AccountField::kName) ||
           EndsInBar(list.UsernameAt(i), AccountField::kUsername) ||
           EndsInBar(list.PasswordAt(i), AccountField::kSecret);
  };
  std::vector<std::size_t> order(list.Accounts.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_partition(order.begin(), order.end(), [&](auto i) { return !mustStandLast(i); });
  AccountList ordered;
  for (const std::size_t i : order) {
    ordered.Accounts.push_back(list.Accounts[i]);
    ordered.Usernames.push_back(list.UsernameAt(i));
    ordered.Passwords.push_back(list.PasswordAt(i));
  }
  return ordered;
}

}  // namespace quillbox
