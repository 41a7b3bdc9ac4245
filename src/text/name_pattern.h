// File name patterns such as "*.wav".
#pragma once

#include <string_view>

namespace quillbox {

// Whether the whole of `name` matches `pattern`, in which "*" stands for any run of characters,
// also an empty one, and "?" for one. Both in the code page; case is ignored. Takes at most time
// proportional to the product of the lengths.
bool MatchesNamePattern(std::string_view name, std::string_view pattern);

}  // namespace quillbox
