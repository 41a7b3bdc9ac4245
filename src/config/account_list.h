// The watched accounts, how they and the proxy's credentials are stored, and whether an account
// that a person enters can be.
#pragma once

#include <cstddef>
#include <optional>
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

  // The entry, or the empty text after the end of its list.
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

// Goes by Accounts: shorter lists count as filled up with empty entries, and entries after the last
// account are left out. Not every list comes back as it was (see FindEntryProblem).
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

enum class SettingsMode { kPerUser, kFile };

enum class AccountField {
  kName,
  kUsername,
  kSecret
};  // a secret is a password or the name of a grant

enum class EntryProblem {
  kCharacter,      // a control character; a host puts one for what the code page lacks
  kKeyTaken,       // the statistics would lie under a key that another account uses
  kNoKey,          // no key of a settings file can be named so
  kPasswordRange,  // ScrambleText can't carry it
  kThreeBars,      // the field, or a password's stored form, holds the lists' separator
  kBarAtEnd,       // the same ends in a bar, which would go to the next account
  kTooLong         // the joined list, for a settings file
};

struct EntryFinding {
  EntryProblem Problem;
  AccountField Field;
};

// The first reason why the account `entered`, which is new in `list` or has been edited, can't be
// stored. The three lists must have the same length. What passes comes back from the store as
// it is, together with the statistics that are stored under the account's name, whichever others
// stand before and behind it. The others are not checked: one bad
// account in the store would then refuse every new one.
std::optional<EntryFinding> FindEntryProblem(const AccountList& list, std::size_t entered,
                                             SettingsMode mode);

// The same accounts in an order in which they can be stored: one that can't have another after it,
// as a store that was edited by hand may hold it, comes last.
AccountList InStorableOrder(const AccountList& list);

}  // namespace quillbox
