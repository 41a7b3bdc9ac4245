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

std::string LoadAccountPasswords(const SettingsStore& store) {
  std::vector<std::string> passwords = SplitText(store.ReadSetting(kPasswords), kListSeparator);
  for (std::string& password : passwords) {
    const bool wasEmpty = password.empty();
    password = UnscrambleText(password);
    if (password.empty() && !wasEmpty) return {};
  }
  return JoinText(passwords, kListSeparator);
}

AccountList LoadAccountList(const SettingsStore& store) {
  AccountList list;
  list.Accounts = SplitText(store.ReadSetting(kAccounts), kListSeparator);
  list.Usernames = SplitText(store.ReadSetting(kUsernames), kListSeparator);
  list.Passwords = SplitText(LoadAccountPasswords(store), kListSeparator);
  return list;
}

void SaveAccountList(SettingBatch& batch, const AccountList& list) {
  std::vector<std::string> usernames, scrambled;
  for (std::size_t i = 0; i < list.Accounts.size(); ++i) {
    usernames.push_back(list.UsernameAt(i));
    scrambled.push_back(ScrambleText(list.PasswordAt(i)));
  }
  batch.Write(kAccounts, JoinText(list.Accounts, kListSeparator))
      .Write(kUsernames, JoinText(usernames, kListSeparator))
      .Write(kPasswords, JoinText(scrambled, kListSeparator));
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
