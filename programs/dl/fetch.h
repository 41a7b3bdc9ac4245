// The steps of one run: sign in if asked, then fetch the address.
#pragma once

#include <string>

#include "request/agent_text.h"
#include "request/answer.h"
#include "session.h"

namespace quillbox {

struct Fetched {
  ResultCode Code = ResultCode::kNoAnswer;
  std::string Body;  // as received; has meaning with kSuccess alone
};

// Where the password is a grant's name, the report is fetched from the current API, in the
// same form. A signed-in request whose address is not https sends nothing and gives kNotSecure; an
// address that can't be understood gives kNoConnection.
Fetched Fetch(Session& session, const AgentRequest& request);

}  // namespace quillbox
