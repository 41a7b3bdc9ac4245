#include "account_choice.h"

#include <algorithm>

#include "oauth/browser_pages.h"

namespace quillbox {

std::optional<PublisherAccount> AskForAccount(LoopbackServer& server, const std::string& state,
                                              std::span<const PublisherAccount> accounts,
                                              LoopbackServer::Clock::time_point end) {
  auto chosen = accounts.end();
  const auto isOurs = [&](const QueryFields& query) {
    chosen = std::ranges::find(accounts, FieldOf(query, "account"), &PublisherAccount::Name);
    const bool fits = chosen != accounts.end() || !query.contains("account");
    return fits && FieldOf(query, "state") == state;
  };
  do {
    server.Show(ChoicePage(state, accounts));
    if (!server.Await(isOurs, end)) return std::nullopt;
  } while (chosen == accounts.end());
  return *chosen;
}

}  // namespace quillbox
