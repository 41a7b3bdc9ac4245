// zlib, loaded for a conversation with servers and not before.
#pragma once

#include <zlib.h>

namespace quillbox {

// The functions that unpack. All are null when it could not be loaded.
struct ZlibLibrary {
  decltype(&::inflateInit2_) Begin = nullptr;
  decltype(&::inflateReset) BeginAgain = nullptr;
  decltype(&::inflate) Inflate = nullptr;
  decltype(&::inflateEnd) End = nullptr;

  bool Loaded() const { return End != nullptr; }
};

// It stays loaded until the process ends.
ZlibLibrary LoadZlib();

}  // namespace quillbox
