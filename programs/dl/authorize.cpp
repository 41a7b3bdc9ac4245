#include "commands.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "browser/loopback_server.h"
#include "consent_exchange.h"
#include "environment.h"
#include "grant_files.h"
#include "oauth/consent.h"
#include "service_questions.h"
#include "system/file_locks.h"
#include "system/terminal.h"
#include "system/watchdog.h"

namespace quillbox {
namespace {

constexpr const char* kNoClient =
    "Quillbox can't ask for access: this build doesn't say who it is to the service.\n"
    "Register a desktop application with the service, then set QUILLBOX_OAUTH_CLIENT_ID (and\n"
    "QUILLBOX_OAUTH_CLIENT_SECRET, if you were given one) in the environment, or build with "
    "them.\n";

constexpr const char* kNoAnswerCame = "No answer came in five minutes.";
constexpr const char* kNoEnd = "The service did not answer in time.";
constexpr const char* kNoBrowser =
    "The browser could not be opened. Run \"dl authorize\" in a terminal: it prints an address "
    "that "
    "you can open yourself, and then the name that belongs in the password's place.";

void Tell(const std::string& words) {
  std::fputs((words + "\n").c_str(), stderr);
}

// Asks the person in the browser that waits for a page of `server`. The question is shown again to
// whoever brings `state` alone (a page that is loaded anew); an account that isn't one of them is
// sent away. Nothing once the time is up. After a choice the browser waits for another page.
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

// The consent page's answer, and then the grant; each step that fails throws an Outcome.
class Authorization {
 public:
  Authorization(const Crypto& crypto, const CurlLibrary& curl, ClientIdentity client)
      : curl_(curl), client_(std::move(client)) {
    const auto secrets = MakeConsentSecrets(crypto);
    const auto name = MakeGrantName(crypto);
    if (!secrets || !name) throw Outcome{ResultCode::kNoAnswer, "No random numbers to be had."};
    if (!server_.Listens()) throw Outcome{ResultCode::kNoConnection, LoopbackServer::kNoPort};
    secrets_ = *secrets;
    name_ = *name;
  }

  // Gives the grant's name.
  std::string Run(const std::string& email, unsigned fileMask) {
    try {
      OpenPage(email, fileMask);
      MakeAndKeep(AwaitCode());
      server_.Show(SentencePage("Quillbox is connected: you can close this page."));
      return name_;
    } catch (const Outcome& none) {
      server_.Show(SentencePage(none.Code == ResultCode::kRefused
                                    ? "Quillbox got no access: you can close this page."
                                    : "Quillbox is not connected: its window says why."));
      throw;
    }
  }

 private:
  void OpenPage(const std::string& email, unsigned fileMask) {
    const std::string address = ConsentAddress({.Page = TheService().Consent,
                                                .ClientId = client_.Id,
                                                .Scope = TheScope(),
                                                .Redirect = server_.Address(),
                                                .State = secrets_.State,
                                                .Challenge = secrets_.Challenge,
                                                .Email = email});
    Tell("Your browser should open. If it doesn't, open this address yourself:\n\n" + address +
         "\n\nWaiting five minutes for your answer there ...");
    if (OpenInBrowser(server_, secrets_.Page, address, end_, fileMask)) return;
    // Who has started us without a terminal shows no address.
    if (!ErrorsAreSeen()) throw Outcome{ResultCode::kNoConnection, kNoBrowser};
    Tell("(The browser could not be opened.)");
  }

  std::string AwaitCode() {
    const auto query = server_.Await(
        [this](const QueryFields& fields) {
          const auto answer = ReadConsent(fields);
          return answer && answer->State == secrets_.State;
        },
        end_);
    if (!query) throw Outcome{ResultCode::kNoAnswer, kNoAnswerCame};
    const ConsentAnswer answer = ReadConsent(*query).value();
    if (answer.Code.empty()) {
      throw Outcome{ResultCode::kRefused, "Access was not granted (" + Plain(answer.Error) + ")."};
    }
    return answer.Code;
  }

  Grant MakeGrant(const std::string& code) {
    const ExchangedCode exchanged =
        ExchangeCode(curl_, client_, {code, server_.Address(), secrets_.Verifier});
    const PublisherAccount account = OneOf(exchanged.Accounts);
    Tell("Connected to " + account.Name + ".");
    return {exchanged.RefreshToken, client_, account.Name, account.Created};
  }

  PublisherAccount OneOf(const std::vector<PublisherAccount>& accounts) {
    if (accounts.size() == 1) return accounts.front();
    Tell("There are several publisher accounts. Choose one in the browser ...");
    const auto chosen = AskForAccount(server_, secrets_.State, accounts, end_);
    if (!chosen) throw Outcome{ResultCode::kNoAnswer, kNoAnswerCame};
    return *chosen;
  }

  // Before the service makes the grant its place is on the disk, and nobody takes back what the
  // same person has granted before.
  void MakeAndKeep(const std::string& code) {
    const std::string folder = GrantFolder();
    const Outcome notKept{ResultCode::kNoConnection, "The grant could not be kept in " + folder};
    GrantPlace place(folder, name_);
    if (!place.IsMade()) throw notKept;
    const FolderLock lock(folder, Sharing::kShared, TheLimits().Total / 2);
    if (lock.State() == LockState::kTaken) {
      throw Outcome{ResultCode::kNoAnswer, "Another grant is being given back. Try again."};
    }
    const Grant grant = MakeGrant(code);
    EndWatch();  // what is kept is told
    if (!place.Keep(grant)) throw notKept;
  }

  const CurlLibrary& curl_;
  ClientIdentity client_;
  LoopbackServer server_;
  LoopbackServer::Clock::time_point end_ = LoopbackServer::Clock::now() + TheLimits().Person;
  ConsentSecrets secrets_;
  std::string name_;
};

}  // namespace

int Authorize(const std::string& email, unsigned fileMask) {
  const ClientIdentity client = TheClient();
  if (client.Id.empty()) {
    std::fputs(kNoClient, stderr);
    return 2;
  }
  const Crypto crypto;
  const CurlLibrary curl = LoadCurl();
  if (!crypto.Loaded() || !curl.Loaded()) {
    Tell(crypto.Loaded() ? kNoCurl : kNoCrypto);
    return static_cast<int>(ResultCode::kNoConnection);
  }
  WatchCommand(std::string("\n") + kNoEnd, kStandardErrors, TheLimits().Person + TheLimits().Total);
  try {
    const std::string name = Authorization(crypto, curl, client).Run(email, fileMask);
    std::puts(name.c_str());
    return std::fflush(stdout) == 0 ? 0 : static_cast<int>(ResultCode::kNoConnection);
  } catch (const Outcome& none) {
    EndWatch();
    Tell("\n" + none.Words);
    return static_cast<int>(none.Code);
  }
}

}  // namespace quillbox
