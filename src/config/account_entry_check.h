// Whether an account that a person enters can be stored.
#pragma once

#include <cstddef>
#include <optional>

#include "config/account_list.h"

namespace quillbox {

enum class SettingsMode { kPerUser, kFile };

enum class AccountField { kName, kUsername, kPassword };

enum class EntryProblem {
  kCharacter,      // a control character; a host puts one for what the code page lacks
  kKeyTaken,       // the statistics would lie under a key that another account uses
  kNoKey,          // no key of a settings file can be named so
  kPasswordRange,  // ScrambleText can't carry it
  kThreeBars,      // the field, or a password's stored form, holds the lists' separator
  kBarAtEnd,       // the same ends in a bar, which would go to an account behind it
  kTooLong         // the joined list, for a settings file
};

struct EntryFinding {
  EntryProblem Problem;
  AccountField Field;
};

// The first thing that speaks against storing the account `entered`, which is new in `list` or has
// been edited. The three lists must have the same length. What passes comes back from the store as
// it is, together with the statistics that are stored under the account's name, whichever others
// stand before and behind it. What is wrong with those is not looked for: nobody would be let in
// any more because of one.
std::optional<EntryFinding> FindEntryProblem(const AccountList& list, std::size_t entered,
                                             SettingsMode mode);

// The same accounts as they can be stored: one that can't have another behind it, as a store that
// was edited by hand may hold it, comes behind all others.
AccountList InStorableOrder(const AccountList& list);

}  // namespace quillbox
