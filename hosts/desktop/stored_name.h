// Names of sections and keys as the per-user store's file has them.
#pragma once

#include <QString>
#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

// Qt reads "/" and "\" in a name as a path and tidies blanks and empty parts away. So letters,
// digits,
// "-" and "." stay, every other character becomes "_" and its code in two hexadecimal capitals, and
// the empty name is "_". Stored form: must not change.
QString ToStoredName(std::string_view name);

// The reverse; nothing for what ToStoredName never yields.
std::optional<std::string> FromStoredName(const QString& stored);

}  // namespace quillbox
