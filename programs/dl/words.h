// What came of asking the service, in words for a person.
#pragma once

#include <string>
#include <string_view>

#include "api/service_verdict.h"

namespace quillbox {

// A service's text fit for a terminal: its control characters are blanks, and it has an end.
std::string Plain(std::string_view text);

// A sentence or two; with kNoConnection the verdict's words are our own. `address`: whom we asked,
// of which the host is named.
std::string WordsFor(const ServiceVerdict& verdict, const std::string& address);

}  // namespace quillbox
