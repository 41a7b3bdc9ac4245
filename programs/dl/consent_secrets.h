// The secrets of one consent (PKCE, RFC 7636) and the names of grants.
#pragma once

#include <optional>
#include <string>

#include "system/crypto.h"

namespace quillbox {

struct ConsentSecrets {
  std::string Verifier;   // told to the token endpoint alone; proves that we asked
  std::string Challenge;  // its SHA-256, for the consent page
  std::string State;      // tells our redirect from others
  std::string Page;       // the name of our own page that leads on to the consent page
};

// 43 characters that nobody can guess and any address can hold; nothing when there are no random
// bytes to be had. `crypto` must be loaded, here and below.
std::optional<std::string> RandomText(const Crypto& crypto);

// Nothing when there are no random bytes to be had.
std::optional<ConsentSecrets> MakeConsentSecrets(const Crypto& crypto);

// BASE64URL(SHA256(verifier)); nothing on failure.
std::optional<std::string> ChallengeOf(const Crypto& crypto, const std::string& verifier);

// A name that nobody else has; nothing when there are no random bytes to be had.
std::optional<std::string> MakeGrantName(const Crypto& crypto);

}  // namespace quillbox
