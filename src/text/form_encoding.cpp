#include "text/form_encoding.h"

#include <optional>

namespace quillbox {
namespace {

constexpr std::string_view kEncodedMarks = "_+-&/?@ .=";

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
bool IsCapital(char c) {
  return c >= 'A' && c <= 'Z';
}
bool IsSmall(char c) {
  return c >= 'a' && c <= 'z';
}

void AppendEncoded(std::string& out, char c) {
  const std::string_view digits = IsSmall(c) ? "0123456789abcdef" : "0123456789ABCDEF";
  const auto code = static_cast<unsigned char>(c);
  out += '%';
  out += digits[code >> 4];
  out += digits[code & 0x0F];
}

std::optional<unsigned> HexDigit(char c) {
  if (IsDigit(c)) return static_cast<unsigned>(c - '0');
  if (c >= 'A' && c <= 'F') return static_cast<unsigned>(c - 'A' + 10);
  if (c >= 'a' && c <= 'f') return static_cast<unsigned>(c - 'a' + 10);
  return std::nullopt;
}

}  // namespace

std::string EncodeFormValue(std::string_view text) {
  std::string encoded;
  encoded.reserve(text.size() * 3);
  for (const char c : text) {
    if (IsDigit(c) || IsCapital(c) || IsSmall(c) ||
        kEncodedMarks.find(c) != std::string_view::npos) {
      AppendEncoded(encoded, c);
    } else {
      encoded += c;
    }
  }
  return encoded;
}

std::string DecodeFormValue(std::string_view encoded) {
  std::string text;
  text.reserve(encoded.size());
  for (std::size_t i = 0; i < encoded.size(); ++i) {
    if (encoded[i] == '%' && i + 2 < encoded.size()) {
      const std::optional<unsigned> high = HexDigit(encoded[i + 1]);
      const std::optional<unsigned> low = HexDigit(encoded[i + 2]);
      if (high && low) {
        text += static_cast<char>(*high * 16 + *low);
        i += 2;
        continue;
      }
    }
    text += encoded[i];
  }
  return text;
}

}  // namespace quillbox
