#include "browser/browser.h"

#include <algorithm>

#include "system/opener.h"

namespace quillbox {
namespace {

using namespace std::chrono_literals;

using Clock = LoopbackServer::Clock;

constexpr auto kWatching = 2000ms;
constexpr auto kLookEvery = 10ms;

bool FailsSoon(const Opener& opener, LoopbackServer& server) {
  for (const auto end = Clock::now() + kWatching; Clock::now() < end;) {
    if (server.AwaitOffered(Clock::now() + kLookEvery)) return false;
    if (const auto failed = opener.Failed()) return *failed;
  }
  return false;
}

}  // namespace

bool OpenInBrowser(LoopbackServer& server, const std::string& page, const std::string& address,
                   Clock::time_point end, unsigned fileMask) {
  const Opener opener(server.Offer(page, address, std::min(end, Clock::now() + kOffered)),
                      fileMask);
  return opener.Started() && !FailsSoon(opener, server);
}

}  // namespace quillbox
