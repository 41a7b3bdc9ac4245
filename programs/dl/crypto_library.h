// libcrypto, loaded when a grant is made and not before.
#pragma once

#include <openssl/evp.h>
#include <openssl/rand.h>

namespace quillbox {

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

}  // namespace quillbox
