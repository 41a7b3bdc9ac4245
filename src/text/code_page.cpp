#include "text/code_page.h"

#include <algorithm>
#include <array>

namespace quillbox {
namespace {

// Codes 0x80 to 0x9F; all others are their own code point.
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// Such a text is the same in the code page and in UTF-8, and most are such.
bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

void AppendUtf8(std::string& out, char32_t character) {
  const auto byte = [&out](char32_t value) { out += static_cast<char>(value); };
  if (character < 0x80) {
    byte(character);
  } else if (character < 0x800) {
    byte(0xC0 | (character >> 6));
    byte(0x80 | (character & 0x3F));
  } else {
    byte(0xE0 | (character >> 12));
    byte(0x80 | ((character >> 6) & 0x3F));
    byte(0x80 | (character & 0x3F));
  }
}

// Takes one character of up to three bytes from the front of `in`; longer ones are outside the
// code page in any case.
std::optional<char32_t> TakeUtf8(std::string_view& in) {
  const auto first = static_cast<unsigned char>(in.front());
  if (first < 0x80) {
    in.remove_prefix(1);
    return first;
  }
  const bool twoBytes = (first & 0xE0) == 0xC0;
  const bool threeBytes = (first & 0xF0) == 0xE0;
  if (!twoBytes && !threeBytes) return std::nullopt;
  const std::size_t length = twoBytes ? 2 : 3;
  if (in.size() < length) return std::nullopt;

  char32_t character = first & (twoBytes ? 0x1FU : 0x0FU);
  for (std::size_t i = 1; i < length; ++i) {
    const auto next = static_cast<unsigned char>(in[i]);
    if ((next & 0xC0) != 0x80) return std::nullopt;
    character = (character << 6) | (next & 0x3FU);
  }
  if (character < (twoBytes ? 0x80U : 0x800U)) return std::nullopt;  // not the shortest form
  in.remove_prefix(length);
  return character;
}

// Lower-case letters outside of ASCII and the rows 0xE0 to 0xFE, and their capitals.
struct Pair {
  unsigned char lower, upper;
};
constexpr Pair kScattered[] = {{0x9A, 0x8A}, {0x9C, 0x8C}, {0x9E, 0x8E}, {0xFF, 0x9F}};

constexpr bool IsLowerRow(unsigned char c) {
  return IsAsciiSmall(static_cast<char>(c)) || (c >= 0xE0 && c <= 0xFE && c != 0xF7);
}
constexpr bool IsUpperRow(unsigned char c) {
  return IsAsciiCapital(static_cast<char>(c)) || (c >= 0xC0 && c <= 0xDE && c != 0xD7);
}

template <char (*Map)(char)>
std::string Mapped(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), Map);
  return result;
}

}  // namespace

char32_t ToCodePoint(unsigned char code) {
  return code >= 0x80 && code < 0xA0 ? kHighControls[code - 0x80U] : code;
}

std::optional<unsigned char> FromCodePoint(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
    return static_cast<unsigned char>(character);
  }
  const auto found = std::find(kHighControls.begin(), kHighControls.end(), character);
  if (found == kHighControls.end()) return std::nullopt;
  return static_cast<unsigned char>(0x80 + (found - kHighControls.begin()));
}

std::optional<std::string> FromUtf8(std::string_view utf8) {
  if (IsAscii(utf8)) return std::string(utf8);
  std::string text;
  text.reserve(utf8.size());
  while (!utf8.empty()) {
    const std::optional<char32_t> character = TakeUtf8(utf8);
    if (!character) return std::nullopt;
    const std::optional<unsigned char> code = FromCodePoint(*character);
    if (!code) return std::nullopt;
    text += static_cast<char>(*code);
  }
  return text;
}

std::string ToUtf8(std::string_view text) {
  if (IsAscii(text)) return std::string(text);
  std::string utf8;
  utf8.reserve(text.size());
  for (const char c : text) AppendUtf8(utf8, ToCodePoint(static_cast<unsigned char>(c)));
  return utf8;
}

char UpperCase(char letter) {
  const auto c = static_cast<unsigned char>(letter);
  if (IsLowerRow(c)) return static_cast<char>(c - 0x20);
  for (const Pair& pair : kScattered) {
    if (c == pair.lower) return static_cast<char>(pair.upper);
  }
  return letter;
}

char LowerCase(char letter) {
  const auto c = static_cast<unsigned char>(letter);
  if (IsUpperRow(c)) return static_cast<char>(c + 0x20);
  for (const Pair& pair : kScattered) {
    if (c == pair.upper) return static_cast<char>(pair.lower);
  }
  return letter;
}

std::string UpperCase(std::string_view text) {
  return Mapped<UpperCase>(text);
}
std::string LowerCase(std::string_view text) {
  return Mapped<LowerCase>(text);
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return LowerCase(x) == LowerCase(y); });
}

bool LessIgnoringCase::operator()(std::string_view a, std::string_view b) const {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return static_cast<unsigned char>(LowerCase(x)) < static_cast<unsigned char>(LowerCase(y));
  });
}

}  // namespace quillbox
