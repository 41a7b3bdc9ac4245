// The one character set of the core: windows-1252, in which every code from 0 to 255 is a
// character. Unicode, classes of characters, upper and lower case.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

// The five codes that windows-1252 leaves unassigned (129, 141, 143, 144, 157) stand for the
// control characters U+0081, U+008D, U+008F, U+0090 and U+009D, so that any byte has a character.

// `utf8` in the code page. Nothing when `utf8` is not valid UTF-8 or holds a character that the
// code page lacks.
std::optional<std::string> FromUtf8(std::string_view utf8);

// `text` (code page) as UTF-8. Never fails.
std::string ToUtf8(std::string_view text);

// The character of the code `code` of the code page, as a Unicode code point.
char32_t ToCodePoint(unsigned char code);

// The code of a Unicode character, or nothing when the code page lacks it.
std::optional<unsigned char> FromCodePoint(char32_t character);

// ASCII alone.
constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
constexpr bool IsAsciiCapital(char c) {
  return c >= 'A' && c <= 'Z';
}
constexpr bool IsAsciiSmall(char c) {
  return c >= 'a' && c <= 'z';
}

// A letter whose other case the code page lacks stays as it is.
char UpperCase(char letter);
char LowerCase(char letter);
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);

bool EqualIgnoringCase(std::string_view a, std::string_view b);

// Orders texts that differ only in case as equal; for maps keyed without regard to case.
struct LessIgnoringCase {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const;
};

}  // namespace quillbox
