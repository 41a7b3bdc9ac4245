// What the Account form says when it refuses an entry.
#pragma once

#include <string>
#include <string_view>

#include "config/account_entry_check.h"
#include "forms/controls.h"

namespace quillbox {

inline constexpr std::string_view kNameExistsMessage = "The entered account name already exists!";

// The field is empty.
std::string IncompleteMessage(const TextField& field);

// `account`: the name that was entered.
std::string EntryMessage(const EntryFinding& finding, std::string_view account);

}  // namespace quillbox
