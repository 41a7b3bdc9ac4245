#include "system/crypto.h"

#include <openssl/evp.h>
#include <openssl/rand.h>

#include "system/shared_library.h"

namespace quillbox {
namespace {

struct CryptoLibrary {
  decltype(&::RAND_bytes) Random = nullptr;
  decltype(&::EVP_Digest) Digest = nullptr;
  decltype(&::EVP_sha256) Sha256 = nullptr;
  decltype(&::EVP_EncodeBlock) Base64 = nullptr;
};

CryptoLibrary Load() {
  const SharedLibrary library("libcrypto", "3");
  CryptoLibrary crypto;
  const bool found =
      library.Find("RAND_bytes", crypto.Random) && library.Find("EVP_Digest", crypto.Digest) &&
      library.Find("EVP_sha256", crypto.Sha256) && library.Find("EVP_EncodeBlock", crypto.Base64);
  return found ? crypto : CryptoLibrary{};
}

// Loaded by the first that asks.
const CryptoLibrary& Library() {
  static const CryptoLibrary kLibrary = Load();
  return kLibrary;
}

}  // namespace

const char* const kNoCrypto =
    "libcrypto can't be loaded: it must be installed, version 3 (libcrypto.so.3).";

Crypto::Crypto() : loaded_(Library().Base64 != nullptr) {}

bool Crypto::FillRandomly(std::span<unsigned char> bytes) const {
  return Library().Random(bytes.data(), static_cast<int>(bytes.size())) == 1;
}

std::optional<std::array<unsigned char, 32>> Crypto::Sha256(std::string_view text) const {
  std::array<unsigned char, 32> digest{};
  unsigned size = 0;
  const int made =
      Library().Digest(text.data(), text.size(), digest.data(), &size, Library().Sha256(), nullptr);
  return made == 1 ? std::optional(digest) : std::nullopt;
}

std::string Crypto::Base64(std::span<const unsigned char> bytes) const {
  std::array<unsigned char, 65> text{};
  const int length = Library().Base64(text.data(), bytes.data(), static_cast<int>(bytes.size()));
  return {text.begin(), text.begin() + length};
}

}  // namespace quillbox
