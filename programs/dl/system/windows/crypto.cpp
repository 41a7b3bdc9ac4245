#include "system/crypto.h"

#include <windows.h>

#include <bcrypt.h>
#include <wincrypt.h>

namespace quillbox {

const char* const kNoCrypto = "The system's cryptography can't be used.";

Crypto::Crypto() : loaded_(true) {}

bool Crypto::FillRandomly(std::span<unsigned char> bytes) const {
  return BCryptGenRandom(nullptr, bytes.data(), static_cast<ULONG>(bytes.size()),
                         BCRYPT_USE_SYSTEM_PREFERRED_RNG) >= 0;
}

std::optional<std::array<unsigned char, 32>> Crypto::Sha256(std::string_view text) const {
  BCRYPT_ALG_HANDLE algorithm = nullptr;
  if (BCryptOpenAlgorithmProvider(&algorithm, BCRYPT_SHA256_ALGORITHM, nullptr, 0) < 0) {
    return std::nullopt;
  }
  std::array<unsigned char, 32> digest{};
  auto* const bytes = reinterpret_cast<unsigned char*>(const_cast<char*>(text.data()));
  const bool made = BCryptHash(algorithm, nullptr, 0, bytes, static_cast<ULONG>(text.size()),
                               digest.data(), static_cast<ULONG>(digest.size())) >= 0;
  BCryptCloseAlgorithmProvider(algorithm, 0);
  return made ? std::optional(digest) : std::nullopt;
}

std::string Crypto::Base64(std::span<const unsigned char> bytes) const {
  std::array<char, 128> text{};
  DWORD length = static_cast<DWORD>(text.size());
  CryptBinaryToStringA(bytes.data(), static_cast<DWORD>(bytes.size()),
                       CRYPT_STRING_BASE64 | CRYPT_STRING_NOCRLF, text.data(), &length);
  return {text.data(), length};
}

}  // namespace quillbox
