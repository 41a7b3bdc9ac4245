// The one character set of the core: windows-1252, in which every code from 0 to 255 is a
// character.
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

}  // namespace quillbox
