#include "desktop/stored_name.h"

namespace quillbox {
namespace {

constexpr char kHex[] = "0123456789ABCDEF";
constexpr char16_t kEscape = u'_';

bool StaysAsItIs(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
         c == '.';
}

// Its value, or -1.
int HexDigit(QChar digit) {
  for (int value = 0; value < 16; ++value) {
    if (digit == QLatin1Char(kHex[value])) return value;
  }
  return -1;
}

}  // namespace

QString ToStoredName(std::string_view name) {
  if (name.empty()) return QString(QChar(kEscape));
  QString stored;
  for (const char c : name) {
    if (StaysAsItIs(c)) {
      stored += QLatin1Char(c);
      continue;
    }
    const auto code = static_cast<unsigned char>(c);
    stored += QChar(kEscape);
    stored += QLatin1Char(kHex[code >> 4]);
    stored += QLatin1Char(kHex[code & 15]);
  }
  return stored;
}

std::optional<std::string> FromStoredName(const QString& stored) {
  if (stored == QChar(kEscape)) return "";
  std::string name;
  for (qsizetype i = 0; i < stored.size(); ++i) {
    const char plain = stored[i].toLatin1();
    if (StaysAsItIs(plain)) {
      name += plain;
      continue;
    }
    if (stored[i] != kEscape || i + 2 >= stored.size()) return std::nullopt;
    const int high = HexDigit(stored[i + 1]);
    const int low = HexDigit(stored[i + 2]);
    if (high < 0 || low < 0) return std::nullopt;
    name += static_cast<char>(high * 16 + low);
    i += 2;
  }
  if (name.empty()) return std::nullopt;
  return name;
}

}  // namespace quillbox
