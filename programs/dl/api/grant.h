// What a person has granted: a lasting right to read one publisher account's reports.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "api/tokens.h"

namespace quillbox {

// To be kept like a password.
struct Grant {
  std::string RefreshToken;
  ClientIdentity Client;                         // to which it was granted; nobody else can use it
  std::string Account;                           // "accounts/pub-1234"
  std::optional<std::chrono::sys_days> Created;  // when the account came into being
};

// The form in which a grant is kept, JSON, and back. Nothing for what isn't a usable grant.
std::string GrantText(const Grant& grant);
std::optional<Grant> ParseGrant(std::string_view text);

}  // namespace quillbox
