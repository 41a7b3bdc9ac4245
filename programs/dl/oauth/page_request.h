// The requests with which a browser brings a person's answers.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

// The fields of a query, decoded. Of several of one name the last holds.
using QueryFields = std::map<std::string, std::string>;

// The field's value; empty when there is none.
std::string FieldOf(const QueryFields& fields, const std::string& name);

// Whether `received`, the beginning of a request, holds its head to the end.
bool IsWholeHead(std::string_view received);

// "/x?y" of "GET /x?y HTTP/1.1". Nothing for other methods.
std::optional<std::string_view> TargetOf(std::string_view head);

// The query of a GET of "/", from the request's head. Nothing for all else, such as the browser's
// wish for an icon.
std::optional<QueryFields> ReadPageRequest(std::string_view head);

}  // namespace quillbox
