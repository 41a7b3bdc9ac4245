// Cutting texts up and putting them together, and patterns that a whole text matches.
#pragma once

#include <cstddef>
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

inline constexpr std::string_view kBlank = " ";
inline constexpr std::string_view kBlankAndTab = " \t";

// `text` without the characters of `blanks` at its ends; a view into `text`.
constexpr std::string_view Trimmed(std::string_view text, std::string_view blanks) {
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

inline constexpr std::size_t kLongestShownName = 60;  // characters

// For places that only show a name (code page): one longer than `longest` characters is cut to that
// length, with an ellipsis in its middle. The ends stay, since they tell names apart.
std::string Elided(std::string_view name, std::size_t longest = kLongestShownName);

// Whether the whole of `name` matches `pattern` ("*.wav"), in which "*" stands for any run of
// characters, also an empty one, and "?" for one. Both in the code page; case is ignored. Takes at
// most time proportional to the product of the lengths.
bool MatchesNamePattern(std::string_view name, std::string_view pattern);

// The same for names of files: each of the two is taken as UTF-8, or byte by byte when it is
// something else or the code page can't hold it.
bool MatchesFilePattern(std::string_view name, std::string_view pattern);

}  // namespace quillbox
