#include "crypto_library.h"

#include <dlfcn.h>

namespace quillbox {
namespace {

#ifdef __APPLE__
constexpr const char* kLibrary = "libcrypto.3.dylib";
#else
constexpr const char* kLibrary = "libcrypto.so.3";
#endif

template <typename Function>
bool Find(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(::dlsym(library, name));
  return function != nullptr;
}

}  // namespace

CryptoLibrary LoadCrypto() {
  void* const library = ::dlopen(kLibrary, RTLD_NOW | RTLD_LOCAL);
  CryptoLibrary crypto;
  const bool found = library != nullptr && Find(library, "RAND_bytes", crypto.Random) &&
                     Find(library, "EVP_Digest", crypto.Digest) &&
                     Find(library, "EVP_sha256", crypto.Sha256) &&
                     Find(library, "EVP_EncodeBlock", crypto.Base64);
  return found ? crypto : CryptoLibrary{};
}

}  // namespace quillbox
