// The watched accounts, and how they and the proxy's credentials are stored.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "config/settings_store.h"

namespace quillbox {

// Entry i of the three lists belongs to one account. Lists that come from a damaged store can
// differ in length; they stay as loaded.
struct AccountList {
  std::vector<std::string> Accounts;
  std::vector<std::string> Usernames;
  std::vector<std::string> Passwords;  // in clear

  // The entry, or the empty text behind the end of its list.
  std::string UsernameAt(std::size_t index) const;
  std::string PasswordAt(std::size_t index) const;
};

// Each character's code raised by its position, counted from 1. Stored form: must not change. A
// text with a position whose code would pass 255 can't be carried: the result is empty.
std::string ScrambleText(std::string_view text);

// The reverse. A text with a position whose code would fall below 0 gives the empty text.
std::string UnscrambleText(std::string_view text);

// The three lists as they are stored: joined, passwords scrambled.
struct StoredAccountList {
  std::string Accounts;
  std::string Usernames;
  std::string Passwords;
};

// The walk goes over Accounts: shorter lists count as filled up with empty entries, what is behind
// the last account is left out. Not every list comes back as it was (see account_entry_check.h).
StoredAccountList ToStoredForm(const AccountList& list);
AccountList FromStoredForm(const StoredAccountList& stored);

// The stored passwords in clear, joined as they were. Empty when any of them can't be unscrambled.
std::string LoadAccountPasswords(const SettingsStore& store);

AccountList LoadAccountList(const SettingsStore& store);

// Adds the three stored lists to the batch, in their order.
void SaveAccountList(SettingBatch& batch, const AccountList& list);

std::string ReadProxyUsername(const SettingsStore& store);
std::string ReadProxyPassword(const SettingsStore& store);
void SaveProxyUsername(SettingsStore& store, std::string_view username);
void SaveProxyPassword(SettingsStore& store, std::string_view password);

}  // namespace quillbox
