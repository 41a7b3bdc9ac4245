// A program's request for access: its fields, its proof (PKCE) and the redirect that answers it.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

// The fields of a form or a query.
using FormFields = std::multimap<std::string, std::string>;

// The value of a field, the first if it comes several times; empty without one.
std::string FieldOf(const FormFields& fields, const std::string& name);

// The fields of an address's query, decoded. A name ends at the first "=", so that a value may hold
// one as it is.
FormFields QueryFields(std::string_view address);

// PKCE: proof that a code is redeemed by the program that asked for it.
enum class ChallengeMethod { kPlain, kS256 };

// Whether `verifier` (43 to 128 letters, digits and - . _ ~) is what `challenge` was made from.
bool Verifies(std::string_view verifier, ChallengeMethod method, std::string_view challenge);

// As it stands in the address of the consent page.
struct Authorization {
  std::string RedirectUri;
  std::string Scope;
  std::string Challenge;
  ChallengeMethod Method = ChallengeMethod::kPlain;
  std::string State;
  std::string LoginHint;
  std::string Error;  // what the redirect must say instead of a code; empty when all is well
};

// Nothing when client or redirect are not to be trusted, so that nobody may be sent there: the
// redirect must lead to a program on the same machine.
std::optional<Authorization> ParseAuthorization(const FormFields& fields,
                                                const std::string& clientId);

// The authorization's redirect with one more field ("code" or "error") and the state.
std::string RedirectWith(const Authorization& authorization, const std::string& name,
                         const std::string& value);

}  // namespace quillbox
