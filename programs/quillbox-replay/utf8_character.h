// One character of UTF-8.
#pragma once

#include <optional>
#include <string_view>

namespace quillbox {

// Takes the first character of `in`, which must not be empty. Nothing when `in` does not begin with
// a whole character in its shortest form; surrogates are no characters.
std::optional<char32_t> TakeUtf8Character(std::string_view& in);

}  // namespace quillbox
