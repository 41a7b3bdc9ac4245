#include "crypto_library.h"

#include "shared_library.h"

namespace quillbox {

CryptoLibrary LoadCrypto() {
  const SharedLibrary library("libcrypto", "3");
  CryptoLibrary crypto;
  const bool found =
      library.Find("RAND_bytes", crypto.Random) && library.Find("EVP_Digest", crypto.Digest) &&
      library.Find("EVP_sha256", crypto.Sha256) && library.Find("EVP_EncodeBlock", crypto.Base64);
  return found ? crypto : CryptoLibrary{};
}

}  // namespace quillbox
