// The request with which the browser brings the answer of the consent page.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

struct ConsentAnswer {
  std::string State;
  std::string Code;   // empty when there was no consent
  std::string Error;  // "access_denied", say; empty with a code
};

// Whether `received`, the beginning of a request, holds its head to the end.
bool IsWholeHead(std::string_view received);

// The answer that a request's head brings: a GET of "/" whose query has a state and either a code
// or an error. Nothing for all else, such as the browser's wish for an icon.
std::optional<ConsentAnswer> ReadRedirect(std::string_view head);

}  // namespace quillbox
