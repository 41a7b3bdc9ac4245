// Which of several publisher accounts a grant shall be for.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "api/publisher_accounts.h"
#include "loopback_server.h"

namespace quillbox {

// Asks the person in the browser that waits for a page of `server`. The question is shown again to
// whoever brings `state` alone (a page that is loaded anew); an account that isn't one of them is
// sent away. Nothing once the time is up. After a choice the browser waits for another page.
std::optional<PublisherAccount> AskForAccount(LoopbackServer& server, const std::string& state,
                                              std::span<const PublisherAccount> accounts,
                                              LoopbackServer::Clock::time_point end);

}  // namespace quillbox
