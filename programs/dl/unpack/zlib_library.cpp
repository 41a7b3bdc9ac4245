#include "unpack/zlib_library.h"

#include <dlfcn.h>

namespace quillbox {
namespace {

#ifdef __APPLE__
constexpr const char* kLibrary = "libz.1.dylib";
#else
constexpr const char* kLibrary = "libz.so.1";
#endif

template <typename Function>
bool Find(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(::dlsym(library, name));
  return function != nullptr;
}

}  // namespace

ZlibLibrary LoadZlib() {
  void* const library = ::dlopen(kLibrary, RTLD_NOW | RTLD_LOCAL);
  ZlibLibrary zlib;
  const bool found = library != nullptr && Find(library, "inflateInit2_", zlib.Begin) &&
                     Find(library, "inflateReset", zlib.BeginAgain) &&
                     Find(library, "inflate", zlib.Inflate) &&
                     Find(library, "inflateEnd", zlib.End);
  return found ? zlib : ZlibLibrary{};
}

}  // namespace quillbox
