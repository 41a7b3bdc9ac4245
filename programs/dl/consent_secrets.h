// The secrets of one consent (PKCE, RFC 7636) and the names of grants.
#pragma once

#include <openssl/evp.h>
#include <openssl/rand.h>
#include <optional>
#include <string>

namespace quillbox {

// libcrypto, loaded when a grant is made and not before.

// The functions that we call. All are null when it could not be loaded.
struct CryptoLibrary {
  decltype(&::RAND_bytes) Random = nullptr;
  decltype(&::EVP_Digest) Digest = nullptr;
  decltype(&::EVP_sha256) Sha256 = nullptr;
  decltype(&::EVP_EncodeBlock) Base64 = nullptr;

  bool Loaded() const { return Base64 != nullptr; }
};

// For a person, when it isn't loaded.
inline constexpr const char* kNoCrypto =
    "libcrypto can't be loaded: it must be installed, version 3 (libcrypto.so.3).";

// It stays loaded until the process ends.
CryptoLibrary LoadCrypto();

// The secrets of one consent (PKCE, RFC 7636) and the names of grants.

struct ConsentSecrets {
  std::string Verifier;   // told to the token endpoint alone; proves that we asked
  std::string Challenge;  // its SHA-256, for the consent page
  std::string State;      // tells our redirect from others
  std::string Page;       // the name of our own page that leads on to the consent page
};

// 43 characters that nobody can guess and any address can hold; nothing when there are no random
// bytes to be had. `crypto` must be loaded, here and below.
std::optional<std::string> RandomText(const CryptoLibrary& crypto);

// Nothing when there are no random bytes to be had.
std::optional<ConsentSecrets> MakeConsentSecrets(const CryptoLibrary& crypto);

// BASE64URL(SHA256(verifier)); nothing on failure.
std::optional<std::string> ChallengeOf(const CryptoLibrary& crypto, const std::string& verifier);

// A name that nobody else has; nothing when there are no random bytes to be had.
std::optional<std::string> MakeGrantName(const CryptoLibrary& crypto);

}  // namespace quillbox
