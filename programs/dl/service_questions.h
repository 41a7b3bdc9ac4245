// Questions to the current API, each put again when a moment may help, and what came of them in
// words.
#pragma once

#include <string>
#include <string_view>

#include "api/service_verdict.h"
#include "session.h"

namespace quillbox {

// How a command, or a step of it, ended: the code, and words for the person.
struct Outcome {
  ResultCode Code;
  std::string Words;
};

// A service's text fit for a terminal: its control characters are blanks, and it has an end.
std::string Plain(std::string_view text);

// A sentence or two; with kNoConnection the verdict's words are our own. `address`: whom we asked,
// of which the host is named.
std::string WordsFor(const ServiceVerdict& verdict, const std::string& address);

struct ServiceReply {
  ServiceVerdict Verdict;
  std::string Body;  // as it came, also that of a fault
};

// POST of a form to the token endpoint or to the one that takes grants back. Its words are short:
// no sentence of the service's that might repeat what the form holds.
ServiceReply AskForToken(Session& session, const std::string& address, const std::string& form);

// GET of something for which an access token is needed. No redirect is followed.
// The words don't hold the token, even if the service repeats it.
ServiceReply AskWithToken(Session& session, const std::string& address, const std::string& token);

}  // namespace quillbox
