// What a consent takes: its secrets (PKCE, RFC 7636), and lasting access for its code.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "api/publisher_accounts.h"
#include "api/tokens.h"
#include "curl.h"
#include "system/crypto.h"

namespace quillbox {

struct ExchangedCode {
  std::string RefreshToken;                // to be kept like a password
  std::vector<PublisherAccount> Accounts;  // those that it can be for, at least one
};

// Asks the service within one run's limits, which begin here. Throws the Outcome of the step that
// failed. `curl` must be loaded.
ExchangedCode ExchangeCode(const CurlLibrary& curl, const ClientIdentity& client,
                           const ConsentCode& consent);

// The secrets of one consent.
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
