#include "consent_secrets.h"

#include <array>
#include <span>

#include "system/shared_library.h"
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

CryptoLibrary LoadCrypto() {
  const SharedLibrary library("libcrypto", "3");
  CryptoLibrary crypto;
  const bool found =
      library.Find("RAND_bytes", crypto.Random) && library.Find("EVP_Digest", crypto.Digest) &&
      library.Find("EVP_sha256", crypto.Sha256) && library.Find("EVP_EncodeBlock", crypto.Base64);
  return found ? crypto : CryptoLibrary{};
}

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
