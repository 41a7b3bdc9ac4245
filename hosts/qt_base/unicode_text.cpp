#include "qt_base/unicode_text.h"

#include "text/code_page.h"

namespace quillbox {

QString ToUnicode(std::string_view text) {
  QString unicode;
  unicode.reserve(static_cast<qsizetype>(text.size()));
  for (const char c : text) {
    unicode += QChar(static_cast<char16_t>(ToCodePoint(static_cast<unsigned char>(c))));
  }
  return unicode;
}

std::optional<std::string> ToCodePage(const QString& text) {
  std::string bytes;
  for (const QChar c : text) {
    const auto code = FromCodePoint(c.unicode());
    if (!code) return std::nullopt;
    bytes += static_cast<char>(*code);
  }
  return bytes;
}

std::string ToCodePageWithGaps(const QString& text) {
  constexpr char kGap = 0x1A;
  std::string bytes;
  for (const QChar c : text) {
    if (c.isLowSurrogate()) continue;  // the other half of a character that is a gap already
    const auto code = FromCodePoint(c.unicode());
    bytes += code ? static_cast<char>(*code) : kGap;
  }
  return bytes;
}

QString ToUnicodeLines(std::string_view text) {
  return ToUnicode(text).replace("\r\n", "\n");
}

}  // namespace quillbox
