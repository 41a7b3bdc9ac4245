// One run of the fetch program: an address in, a data file and a log file out.
#pragma once

#include <string>

#include "request/agent_text.h"
#include "request/answer.h"
#include "session.h"

namespace quillbox {

// Where the password is a grant's name, the report is fetched from the current API, in the
// same form. A signed-in request whose address is not https sends nothing and gives kNotSecure; an
// address that can't be understood gives kNoConnection.
Fetched Fetch(Session& session, const AgentRequest& request);

// `text`: the argument, in one of its two forms. Gives the exit status: 0 when the log was written,
// 1 when it could not be, 2 when the text names no two files.
int RunFetch(const std::string& text);

}  // namespace quillbox
