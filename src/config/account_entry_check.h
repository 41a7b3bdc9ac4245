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
  kMustStandLast,  // the same ends in a bar, and another account stands behind
  kTooLong,        // the joined list, for a settings file
  kNotKept         // it wouldn't come back, for any other reason
};

struct EntryFinding {
  EntryProblem Problem;
  AccountField Field;
  std::size_t Account;  // index; not always the entered one
};

// The first thing that speaks against storing `list`, in which the account `entered` is new or has
// been edited. The three lists must have the same length. What passes comes back from the store as
// it is, together with the statistics that are stored under the account's name.
std::optional<EntryFinding> FindEntryProblem(const AccountList& list, std::size_t entered,
                                             SettingsMode mode);

}  // namespace quillbox
