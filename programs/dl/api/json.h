// Looking into JSON whose form nobody has promised: what isn't there or has another type is absent.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

using Json = nlohmann::json;

// Nothing unless the whole text is one JSON object in UTF-8.
std::optional<Json> ParseObject(std::string_view text);

// The number that the whole text is; nothing for a number too large.
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
