#include "text/percent_encoding.h"

namespace quillbox {
namespace {

bool IsUnreserved(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
         std::string_view("-._~").find(c) != std::string_view::npos;
}

}  // namespace

std::string PercentEncode(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string encoded;
  encoded.reserve(bytes.size() * 3);
  for (const char c : bytes) {
    if (IsUnreserved(c)) {
      encoded += c;
      continue;
    }
    const auto code = static_cast<unsigned char>(c);
    encoded += '%';
    encoded += kDigits[code >> 4];
    encoded += kDigits[code & 0x0F];
  }
  return encoded;
}

}  // namespace quillbox
