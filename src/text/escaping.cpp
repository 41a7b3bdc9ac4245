#include "text/escaping.h"

#include <optional>

#include "text/code_page.h"

namespace quillbox {
namespace {

constexpr std::string_view kCapitalDigits = "0123456789ABCDEF";
constexpr std::string_view kSmallDigits = "0123456789abcdef";

bool IsOneOf(std::string_view marks, char c) {
  return marks.find(c) != std::string_view::npos;
}

bool IsLetterOrDigit(char c) {
  return IsDigit(c) || IsAsciiCapital(c) || IsAsciiSmall(c);
}

void AppendPercent(std::string& out, char c, std::string_view digits) {
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
  constexpr std::string_view kEncodedMarks = "_+-&/?@ .=";
  std::string encoded;
  encoded.reserve(text.size() * 3);
  for (const char c : text) {
    if (IsLetterOrDigit(c) || IsOneOf(kEncodedMarks, c)) {
      AppendPercent(encoded, c, IsAsciiSmall(c) ? kSmallDigits : kCapitalDigits);
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

std::string PercentEncode(std::string_view bytes) {
  constexpr std::string_view kBareMarks = "-._~";
  std::string encoded;
  encoded.reserve(bytes.size() * 3);
  for (const char c : bytes) {
    if (IsLetterOrDigit(c) || IsOneOf(kBareMarks, c)) {
      encoded += c;
    } else {
      AppendPercent(encoded, c, kCapitalDigits);
    }
  }
  return encoded;
}

std::string HtmlText(std::string_view text) {
  constexpr std::string_view kMarks = "&<>\"'";
  std::string html;
  html.reserve(text.size());
  for (const char c : text) {
    if (IsOneOf(kMarks, c)) {
      html += "&#" + std::to_string(static_cast<int>(c)) + ";";
    } else {
      html += c;
    }
  }
  return html;
}

}  // namespace quillbox
