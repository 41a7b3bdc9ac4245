#include "config/account_list.h"

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

}  // namespace quillbox
