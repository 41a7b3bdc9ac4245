#include "oauth/code_challenge.h"

#include <openssl/evp.h>

#include <algorithm>
#include <array>

namespace quillbox {
namespace {

constexpr std::string_view kLetters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";

bool IsVerifier(std::string_view text) {
  const auto fits = [](char c) {
    return c == '.' || c == '~' || kLetters.find(c) < kLetters.size();
  };
  return text.size() >= 43 && text.size() <= 128 && std::all_of(text.begin(), text.end(), fits);
}

// Base64 in the alphabet for addresses, without the padding.
std::string Base64Url(const unsigned char* bytes, std::size_t size) {
  std::string text;
  unsigned bits = 0;
  unsigned held = 0;
  for (std::size_t i = 0; i < size; ++i) {
    bits = (bits << 8) | bytes[i];
    for (held += 8; held >= 6; held -= 6) text += kLetters[(bits >> (held - 6)) & 63];
  }
  if (held > 0) text += kLetters[(bits << (6 - held)) & 63];
  return text;
}

std::string Sha256(std::string_view text) {
  std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
  unsigned size = 0;
  EVP_Digest(text.data(), text.size(), digest.data(), &size, EVP_sha256(), nullptr);
  return Base64Url(digest.data(), size);
}

}  // namespace

bool Verifies(std::string_view verifier, ChallengeMethod method, std::string_view challenge) {
  if (!IsVerifier(verifier)) return false;
  return challenge == (method == ChallengeMethod::kS256 ? Sha256(verifier) : verifier);
}

}  // namespace quillbox
