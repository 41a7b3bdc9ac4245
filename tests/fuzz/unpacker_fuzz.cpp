// Any packed body in pieces of any size: what comes out, and whether it is whole, depends on the
// bytes alone, and nothing comes after the limit.
#include <optional>

#include "fuzz/fuzz_input.h"
#include "unpack/unpacker.h"

namespace {

using namespace quillbox;

constexpr std::size_t kLimit = 1 << 20;

// The unpacked body if it is whole.
std::optional<std::string> Unpacked(const ZlibLibrary& zlib, ContentCoding coding,
                                    std::string_view body, std::size_t piece) {
  Unpacker unpacker(zlib, coding);
  std::string out;
  const auto take = [&](std::string_view unpacked) {
    Require(out.size() <= kLimit);
    out += unpacked;
    return out.size() <= kLimit;
  };
  for (; !body.empty(); body.remove_prefix(std::min(piece, body.size()))) {
    if (!unpacker.Take(body.substr(0, piece), take)) return std::nullopt;
  }
  return unpacker.Whole() ? std::optional(out) : std::nullopt;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const ZlibLibrary zlib = LoadZlib();
  Require(zlib.Loaded());
  std::string_view text = TextOf(data, size);
  const std::size_t piece = TakeByte(text) + 1;
  const std::string header = TakeText(text, '\n');
  const auto said = ReadContentCoding(header, {});
  Require(ReadContentCoding(header, "gzip") == ContentCoding::kUnknown);
  for (const auto coding : {said, ContentCoding::kGzip, ContentCoding::kDeflate}) {
    const auto whole = Unpacked(zlib, coding, text, text.size());
    Require(Unpacked(zlib, coding, text, piece) == whole);
    if (coding == ContentCoding::kNone) Require(whole == text || text.size() > kLimit);
    if (coding == ContentCoding::kUnknown) Require(!whole || text.empty());
  }
  return 0;
}
