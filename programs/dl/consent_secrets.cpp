#include "consent_secrets.h"

#include <array>
#include <span>

#include "text/grant_name.h"

namespace quillbox {
namespace {

using Bytes32 = std::array<unsigned char, 32>;

// Without padding, with "-" and "_": RFC 4648, 5.
std::string Base64Url(const CryptoLibrary& crypto, std::span<const unsigned char> bytes) {
  std::array<unsigned char, 64> text{};
  const int length = crypto.Base64(text.data(), bytes.data(), static_cast<int>(bytes.size()));
  std::string encoded(text.begin(), text.begin() + length);
  std::erase(encoded, '=');
  for (char& c : encoded) c = c == '+' ? '-' : c == '/' ? '_' : c;
  return encoded;
}

}  // namespace

std::optional<std::string> RandomText(const CryptoLibrary& crypto) {
  Bytes32 bytes{};
  if (crypto.Random(bytes.data(), static_cast<int>(bytes.size())) != 1) return std::nullopt;
  return Base64Url(crypto, bytes);
}

std::optional<std::string> ChallengeOf(const CryptoLibrary& crypto, const std::string& verifier) {
  Bytes32 digest{};
  unsigned size = 0;
  if (crypto.Digest(verifier.data(), verifier.size(), digest.data(), &size, crypto.Sha256(),
                    nullptr) != 1) {
    return std::nullopt;
  }
  return Base64Url(crypto, digest);
}

std::optional<ConsentSecrets> MakeConsentSecrets(const CryptoLibrary& crypto) {
  const auto verifier = RandomText(crypto);
  const auto state = RandomText(crypto);
  const auto page = RandomText(crypto);
  if (!verifier || !state || !page) return std::nullopt;
  const auto challenge = ChallengeOf(crypto, *verifier);
  if (!challenge) return std::nullopt;
  return ConsentSecrets{*verifier, *challenge, *state, *page};
}

std::optional<std::string> MakeGrantName(const CryptoLibrary& crypto) {
  std::array<unsigned char, kGrantNameLetters> bytes{};
  if (crypto.Random(bytes.data(), static_cast<int>(bytes.size())) != 1) return std::nullopt;
  return GrantName(bytes);
}

}  // namespace quillbox
