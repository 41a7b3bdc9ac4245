#include "unpack/unpacker.h"

#include <algorithm>
#include <array>

#include "system/shared_library.h"
#include "text/code_page.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

constexpr std::size_t kPiece = 16384;

constexpr int kGzipFormat = 16 + MAX_WBITS;
constexpr int kZlibFormat = MAX_WBITS;
constexpr int kBareFormat = -MAX_WBITS;

// "deflate" means zlib's format, but there are servers that send the bare stream. In zlib's format
// the lower half of the first byte is 8; a bare stream would have to begin with padding that isn't
// 0.
int FormatOf(ContentCoding coding, char first) {
  if (coding == ContentCoding::kGzip) return kGzipFormat;
  return (first & 0x0F) == Z_DEFLATED ? kZlibFormat : kBareFormat;
}

// libcurl leaves a piece of the line's end in an empty value.
constexpr std::string_view kBlanks = " \t\r\n";

std::string_view TakeName(std::string_view& list) {
  const std::size_t end = std::min(list.find(','), list.size());
  const std::string_view name = list.substr(0, end);
  list.remove_prefix(std::min(end + 1, list.size()));
  return Trimmed(name, kBlanks);
}

ContentCoding Named(std::string_view name) {
  if (name.empty() || EqualIgnoringCase(name, "identity")) return ContentCoding::kNone;
  if (EqualIgnoringCase(name, "gzip") || EqualIgnoringCase(name, "x-gzip")) {
    return ContentCoding::kGzip;
  }
  return EqualIgnoringCase(name, "deflate") ? ContentCoding::kDeflate : ContentCoding::kUnknown;
}

bool IsPlain(std::string_view transfer) {
  while (!transfer.empty()) {
    const std::string_view name = TakeName(transfer);
    if (!EqualIgnoringCase(name, "chunked") && Named(name) != ContentCoding::kNone) return false;
  }
  return true;
}

bool IsLength(std::string_view text) {
  constexpr std::size_t kMostDigits = 18;  // no number of them leaves 64 bits
  return !text.empty() && text.size() <= kMostDigits &&
         std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

ZlibLibrary LoadZlib() {
  const SharedLibrary library("libz", "1");
  ZlibLibrary zlib;
  const bool found = library.Find("inflateInit2_", zlib.Begin) &&
                     library.Find("inflateReset", zlib.BeginAgain) &&
                     library.Find("inflate", zlib.Inflate) && library.Find("inflateEnd", zlib.End);
  return found ? zlib : ZlibLibrary{};
}

Unpacker::Unpacker(const ZlibLibrary& zlib, ContentCoding coding) : zlib_(zlib), coding_(coding) {}

Unpacker::~Unpacker() {
  if (begun_) zlib_.End(&stream_);
}

bool Unpacker::Take(std::string_view piece, const Sink& sink) {
  if (coding_ == ContentCoding::kNone) return sink(piece);
  if (piece.empty()) return true;
  if (!begun_ && !Begin(piece)) return false;
  // zlib doesn't write there.
  stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(piece.data()));
  stream_.avail_in = static_cast<uInt>(piece.size());
  while (stream_.avail_in > 0) {
    if (ended_ && !BeginNextMember()) return false;
    if (!Inflate(sink)) return false;
  }
  return true;
}

bool Unpacker::Begin(std::string_view piece) {
  if (coding_ == ContentCoding::kUnknown || !zlib_.Loaded()) return false;
  const int format = FormatOf(coding_, piece.front());
  begun_ = zlib_.Begin(&stream_, format, ZLIB_VERSION, static_cast<int>(sizeof stream_)) == Z_OK;
  return begun_;
}

// gzip alone may go on behind its end, with another whole gzip.
bool Unpacker::BeginNextMember() {
  ended_ = false;
  return coding_ == ContentCoding::kGzip && zlib_.BeginAgain(&stream_) == Z_OK;
}

// Until the input is used up or a member ends. What doesn't fill the room for it is all there is.
bool Unpacker::Inflate(const Sink& sink) {
  std::array<char, kPiece> unpacked;
  do {
    stream_.next_out = reinterpret_cast<Bytef*>(unpacked.data());
    stream_.avail_out = kPiece;
    const int result = zlib_.Inflate(&stream_, Z_NO_FLUSH);
    // There was nothing left to come out after a piece that fitted exactly.
    if (result == Z_BUF_ERROR) return stream_.avail_in == 0;
    if (result != Z_OK && result != Z_STREAM_END) return false;
    if (!sink({unpacked.data(), kPiece - stream_.avail_out})) return false;
    ended_ = result == Z_STREAM_END;
  } while (!ended_ && stream_.avail_out == 0);
  return true;
}

ContentCoding ReadContentCoding(std::string_view content, std::string_view transfer) {
  ContentCoding coding = IsPlain(transfer) ? ContentCoding::kNone : ContentCoding::kUnknown;
  while (!content.empty()) {
    const ContentCoding named = Named(TakeName(content));
    if (named == ContentCoding::kNone) continue;
    coding = coding == ContentCoding::kNone ? named : ContentCoding::kUnknown;
  }
  return coding;
}

bool EndsInChunks(std::string_view transfer) {
  std::string_view last;
  while (!transfer.empty()) {
    if (const std::string_view name = TakeName(transfer); !name.empty()) last = name;
  }
  return EqualIgnoringCase(last, "chunked");
}

bool IsOneLength(std::string_view lengths) {
  const std::string_view first = TakeName(lengths);
  bool same = IsLength(first);
  while (!lengths.empty()) same = TakeName(lengths) == first && same;
  return same;
}

}  // namespace quillbox
