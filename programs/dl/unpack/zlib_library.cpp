#include "unpack/zlib_library.h"

#include "shared_library.h"

namespace quillbox {

ZlibLibrary LoadZlib() {
  const SharedLibrary library("libz", "1");
  ZlibLibrary zlib;
  const bool found = library.Find("inflateInit2_", zlib.Begin) &&
                     library.Find("inflateReset", zlib.BeginAgain) &&
                     library.Find("inflate", zlib.Inflate) && library.Find("inflateEnd", zlib.End);
  return found ? zlib : ZlibLibrary{};
}

}  // namespace quillbox
