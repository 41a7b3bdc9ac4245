// A program's wish for access, as it stands in the address of the consent page.
#pragma once

#include <optional>
#include <string>

#include "oauth/code_challenge.h"
#include "oauth/form_fields.h"

namespace quillbox {

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
