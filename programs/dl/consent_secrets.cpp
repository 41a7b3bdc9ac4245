#include "consent_secrets.h"

#include <array>
#include <span>

#include "text/grant_name.h"

namespace quillbox {
namespace {

// Without padding, with "-" and "_": RFC 4648, 5.
std::string Base64Url(const Crypto& crypto, std::span<const unsigned char> bytes) {
  std::string encoded = crypto.Base64(bytes);
  std::erase(encoded, '=');
  for (char& c : encoded) c = c == '+' ? '-' : c == '/' ? '_' : c;
  return encoded;
}

}  // namespace

std::optional<std::string> RandomText(const Crypto& crypto) {
  std::array<unsigned char, 32> bytes{};
  if (!crypto.FillRandomly(bytes)) return std::nullopt;
  return Base64Url(crypto, bytes);
}

std::optional<std::string> ChallengeOf(const Crypto& crypto, const std::string& verifier) {
  const auto digest = crypto.Sha256(verifier);
  return digest ? std::optional(Base64Url(crypto, *digest)) : std::nullopt;
}

std::optional<ConsentSecrets> MakeConsentSecrets(const Crypto& crypto) {
  const auto verifier = RandomText(crypto);
  const auto state = RandomText(crypto);
  const auto page = RandomText(crypto);
  if (!verifier || !state || !page) return std::nullopt;
  const auto challenge = ChallengeOf(crypto, *verifier);
  if (!challenge) return std::nullopt;
  return ConsentSecrets{*verifier, *challenge, *state, *page};
}

std::optional<std::string> MakeGrantName(const Crypto& crypto) {
  std::array<unsigned char, kGrantNameLetters> bytes{};
  if (!crypto.FillRandomly(bytes)) return std::nullopt;
  return GrantName(bytes);
}

}  // namespace quillbox
