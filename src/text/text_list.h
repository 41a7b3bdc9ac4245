// Texts that hold several entries with a separator between them.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillbox {

// Between the entries of stored lists and the fields of stored records. Stored: must not change.
inline constexpr std::string_view kListSeparator = "|||";

// Cut at every occurrence of the separator, from left to right; there is no escaping. The empty
// text gives no entry at all, not one empty entry.
std::vector<std::string> SplitText(std::string_view text, std::string_view separator);

// The separator stands between entries, not before the first or behind the last.
std::string JoinText(std::span<const std::string> entries, std::string_view separator);

// `text` with every occurrence of `removed` taken out, from left to right.
std::string WithoutText(std::string_view text, std::string_view removed);

}  // namespace quillbox
