// The answer of the consent page, as the redirect from it brings it.
#pragma once

#include <optional>
#include <string>

#include "oauth/page_request.h"

namespace quillbox {

struct ConsentAnswer {
  std::string State;
  std::string Code;   // empty when there was no consent
  std::string Error;  // "access_denied", say; empty with a code
};

// Nothing unless the query has a state and either a code or an error.
std::optional<ConsentAnswer> ReadConsent(const QueryFields& query);

}  // namespace quillbox
