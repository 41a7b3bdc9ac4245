// Between the core's texts and Qt's: the one place where the code page meets Unicode.
#pragma once

#include <QString>
#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

// `text` (code page). Never fails.
QString ToUnicode(std::string_view text);

// Nothing when the code page lacks a character of it.
std::optional<std::string> ToCodePage(const QString& text);

// The same with the byte 0x1A in the place of each character that the code page lacks.
std::string ToCodePageWithGaps(const QString& text);

// `text` (code page) for a place that shows lines: CR LF becomes the line feed alone.
QString ToUnicodeLines(std::string_view text);

}  // namespace quillbox
