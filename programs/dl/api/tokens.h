// Grants, and the access tokens that they bring: what goes to the endpoints for tokens, and what
// comes back.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

// The forms that go to the endpoints for tokens.

// Who asks, as the service knows it: the program, not the person.
struct ClientIdentity {
  std::string Id;
  std::string Secret;  // empty when the service wants none
};

// A fresh access token for a grant.
std::string RefreshForm(const ClientIdentity& client, const std::string& refreshToken);

// The end of a grant, and of its access tokens (RFC 7009, 2.1). `client`: to which it was granted.
std::string RevokeForm(const ClientIdentity& client, const std::string& refreshToken);

struct ConsentCode {
  std::string Code;
  std::string Redirect;  // the address to which it came
  std::string Verifier;  // of PKCE
};

// A grant for the code that a person's consent brought.
std::string CodeForm(const ClientIdentity& client, const ConsentCode& consent);

// What the token endpoint hands out.

struct TokenAnswer {
  std::string AccessToken;   // letters, digits and marks alone: fit for a header
  std::string RefreshToken;  // likewise; empty when there is none
  std::string Scope;         // what was granted, separated by blanks; empty: what was asked for
  std::optional<std::chrono::seconds> Lifetime;  // of the access token, from its arrival on
};

// Nothing without a usable access token of the kind "Bearer".
std::optional<TokenAnswer> ReadTokenAnswer(std::string_view json);

// Whether `scope`, a list as in TokenAnswer, holds `wanted`. An empty list holds everything.
bool HoldsScope(std::string_view scope, std::string_view wanted);

// Whether an answer that is no success says that the token isn't good any more: revoked or expired
// ("invalid_token").
bool SaysTokenIsGone(std::string_view json);

// What a person has granted: a lasting right to read one publisher account's reports. To be kept
// like a password.
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
