// Questions to the current API, each put again when a moment may help.
#pragma once

#include <string>

#include "api/service_verdict.h"
#include "session.h"

namespace quillbox {

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
