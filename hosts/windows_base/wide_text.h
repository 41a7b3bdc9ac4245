// Between the program's texts and the UTF-16 of Windows: the one place where they meet.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

// `text` in the code page. Never fails.
std::wstring WideOfCodePage(std::string_view text);

// Nothing when the code page lacks a character of it.
std::optional<std::string> WholeCodePageOf(std::wstring_view wide);

// The same with the byte 0x1A in the place of each character that the code page lacks.
std::string CodePageOf(std::wstring_view wide);

// A path, or another text of the system's, in UTF-8. What is no UTF-8, or no UTF-16, becomes the
// replacement character. Separators stay as they are.
std::wstring WideOfPath(std::string_view path);
std::string PathOfWide(std::wstring_view wide);

}  // namespace quillbox
