// The person's browser.
#pragma once

#include <chrono>
#include <string>

#include "browser/loopback_server.h"

namespace quillbox {

inline constexpr std::chrono::milliseconds kOffered{60'000};  // the page of OpenInBrowser

// Has the desktop open `address` by way of a page of `server`, named `page` (not to be guessed): no
// process's arguments show more than that page, which works once within kOffered, and until `end`
// at most. `fileMask`: the mask for files under which the browser shall run. False when the
// desktop's opener can't be started, or fails within two seconds: it is watched so long and no
// longer, since it may be the browser itself. Returns before that when the browser has been led on.
bool OpenInBrowser(LoopbackServer& server, const std::string& page, const std::string& address,
                   LoopbackServer::Clock::time_point end, unsigned fileMask);

}  // namespace quillbox
