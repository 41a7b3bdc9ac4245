// Looking into JSON whose form nobody has promised: what isn't there or has another type is absent.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

using Json = nlohmann::json;

// What a text may hold at the most: what is larger isn't read, since a value in memory takes a
// hundred times the place that it takes in the text.
struct JsonBounds {
  std::size_t Bytes;
  std::size_t Values;  // names of members included
};

// Tokens, accounts, errors.
inline constexpr JsonBounds kShortJson{std::size_t{1} << 20, 100'000};
// 100,000 lines of a report, set out with blanks and line ends.
inline constexpr JsonBounds kReportJson{std::size_t{56} << 20, 5'000'000};

// Nothing unless the whole text is one JSON object in UTF-8, within the bounds, at most 16 objects
// and arrays deep, without a NUL, and no object has a name twice.
std::optional<Json> ParseObject(std::string_view text, const JsonBounds& bounds = kShortJson);

// The number that the whole text is, without blanks; nothing for a number too large or longer than
// 64 characters.
std::optional<double> ParseNumber(std::string_view text);

// Null when `value` is no object or has no such member.
const Json* Member(const Json& value, const char* name);

// Null when the member is absent or no array.
const Json::array_t* ArrayMember(const Json& value, const char* name);

// The member's text, UTF-8; empty when it is absent or no text.
std::string TextMember(const Json& value, const char* name);

// The whole number of a member, also of one that is written as a text.
std::optional<long long> NumberMember(const Json& value, const char* name);

}  // namespace quillbox
