// The short name of a grant, which an account holds in the place of its password.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace quillbox {

// "grant:" and 12 of the 32 characters A to Z and 2 to 7. Stored passwords have each character's
// code raised by its position, and their list is cut at bars: of these 18 characters none leaves
// the range by that or becomes a bar, so that such an account can stand anywhere in the list.
inline constexpr std::string_view kGrantNamePrefix = "grant:";
inline constexpr std::size_t kGrantNameLetters = 12;

bool IsGrantName(std::string_view password);

// The name that random bytes make: 60 bits of them.
std::string GrantName(const std::array<unsigned char, kGrantNameLetters>& random);

}  // namespace quillbox
