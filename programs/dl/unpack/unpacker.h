// How a server says that it has packed a body, and unpacking it.
#pragma once

#include <zlib.h>
#include <functional>
#include <string_view>

namespace quillbox {

enum class ContentCoding { kNone, kGzip, kDeflate, kUnknown };

// What "Content-Encoding" and "Transfer-Encoding" say together; of a header that came several times
// the values are joined by commas, of one that didn't come the value is empty. Codings that we
// don't ask for are unknown: two after each other, and any in the transfer besides "chunked".
ContentCoding ReadContentCoding(std::string_view content, std::string_view transfer);

// Whether the last coding of "Transfer-Encoding", its values joined likewise, is that of chunks: no
// other one tells where the body ends.
bool EndsInChunks(std::string_view transfer);

// Whether "Content-Length", its values joined likewise, tells one length: digits alone, at most 18,
// the same each time.
bool IsOneLength(std::string_view lengths);

// zlib, loaded for a conversation with servers and not before.

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

// A body unpacked while it arrives.

class Unpacker {
 public:
  // Takes what was unpacked; false stops the unpacking.
  using Sink = std::function<bool(std::string_view)>;

  // A body without coding passes as it is; one of a coding that is unknown, or packed while `zlib`
  // isn't loaded, is refused with its first piece.
  Unpacker(const ZlibLibrary& zlib, ContentCoding coding);
  ~Unpacker();
  Unpacker(const Unpacker&) = delete;
  Unpacker& operator=(const Unpacker&) = delete;

  // `piece` is less than 4 GiB. False, and the body is lost: it is damaged, goes on after its end,
  // the memory is out, or the sink said so.
  bool Take(std::string_view piece, const Sink& sink);

  // Whether what was taken so far may be all: a packed body has come to its end, its check sum is
  // right. A body without a byte is whole, and a plain one has no end of its own.
  bool Whole() const { return !begun_ || ended_; }

 private:
  bool Begin(std::string_view piece);
  bool BeginNextMember();
  bool Inflate(const Sink& sink);

  const ZlibLibrary& zlib_;
  ContentCoding coding_;
  bool begun_ = false;  // zlib has a stream of ours
  bool ended_ = false;
  z_stream stream_{};
};

}  // namespace quillbox
