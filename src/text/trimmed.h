// Taking blanks off both ends of a text.
#pragma once

#include <string_view>

namespace quillbox {

// `text` without the characters of `blanks` at its ends; a view into `text`.
constexpr std::string_view Trimmed(std::string_view text, std::string_view blanks) {
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

inline constexpr std::string_view kBlank = " ";
inline constexpr std::string_view kBlankAndTab = " \t";

}  // namespace quillbox
