// What the token endpoint hands out.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

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

}  // namespace quillbox
