// Long names in places that only show them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillbox {

inline constexpr std::size_t kLongestShownName = 60;  // characters

// `name` (code page) with an ellipsis in the place of its middle when it is longer than `longest`
// characters, which it then has; the ends are what tells names apart.
std::string Elided(std::string_view name, std::size_t longest = kLongestShownName);

}  // namespace quillbox
