// Which of several publisher accounts a grant shall be for.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "api/publisher_accounts.h"
#include "browser/loopback_server.h"

namespace quillbox {

// Asks the person in the browser that waits for a page of `server`. The question is shown again to
// whoever brings `state` alone (a page that is loaded anew); an account that isn't one of them is
// sent away. Nothing once the time is up. After a choice the browser waits for another page.
std::optional<PublisherAccount> AskForAccount(LoopbackServer& server, const std::string& state,
                                              std::span<const PublisherAccount> accounts,
                                              LoopbackServer::Clock::time_point end);

// `dl authorize`: a person grants the program access to their reports.

// Opens the consent page, waits for the answer, keeps the grant and writes its name, one line, to
// standard output; words for the person go to standard error, the reason of a failure as the last
// paragraph. `email` (UTF-8, may be empty) tells
// the page whose account it is. `fileMask`: the one under which the browser shall run. Gives the
// exit status: 0, or a result code's number; 2 also when the program has no client identity.
int Authorize(const std::string& email, unsigned fileMask);

}  // namespace quillbox
