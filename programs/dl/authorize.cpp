#include "authorize.h"

#include <chrono>
#include <cstdio>
#include <optional>
#include <utility>
#include <vector>

#include "api/publisher_accounts.h"
#include "api/token_answer.h"
#include "browser.h"
#include "consent_secrets.h"
#include "environment.h"
#include "grant_files.h"
#include "loopback_server.h"
#include "oauth/consent_address.h"
#include "service_questions.h"
#include "words.h"

namespace quillbox {
namespace {

constexpr std::chrono::seconds kPatience = std::chrono::minutes(5);
constexpr int kMostPages = 100;  // of accounts

constexpr const char* kNoClient =
    "Quillbox can't ask for access: this build doesn't say who it is to the service.\n"
    "Register a desktop application with the service, then set QUILLBOX_OAUTH_CLIENT_ID (and\n"
    "QUILLBOX_OAUTH_CLIENT_SECRET, if you were given one) in the environment, or build with "
    "them.\n";

// Why there is no grant, and the exit status that says so.
struct NoGrant {
  ResultCode Code;
  std::string Words;
};

void Tell(const std::string& words) {
  std::fputs((words + "\n").c_str(), stderr);
}

// The consent page's answer, and then the grant; each step that fails throws NoGrant.
class Authorization {
 public:
  Authorization(const CryptoLibrary& crypto, const CurlLibrary& curl, ClientIdentity client)
      : curl_(curl), client_(std::move(client)) {
    const auto secrets = MakeConsentSecrets(crypto);
    const auto name = MakeGrantName(crypto);
    if (!secrets || !name) throw NoGrant{ResultCode::kNoAnswer, "No random numbers to be had."};
    if (!server_.Listens()) throw NoGrant{ResultCode::kNoConnection, "No free port on 127.0.0.1."};
    secrets_ = *secrets;
    name_ = *name;
  }

  // Gives the grant's name.
  std::string Run(const std::string& email, unsigned fileMask) {
    try {
      OpenPage(email, fileMask);
      const std::string code = AwaitCode();
      Session session = OpenSession(curl_);  // its time begins once the person has answered
      Keep(MakeGrant(session, code));
      server_.Show("Quillbox is connected. You can close this page.");
      return name_;
    } catch (const NoGrant&) {
      server_.Show("Quillbox is not connected. You can close this page and try again.");
      throw;
    }
  }

 private:
  void OpenPage(const std::string& email, unsigned fileMask) {
    const std::string address = ConsentAddress({.Page = addresses_.Consent,
                                                .ClientId = client_.Id,
                                                .Scope = TheScope(),
                                                .Redirect = server_.Address(),
                                                .State = secrets_.State,
                                                .Challenge = secrets_.Challenge,
                                                .Email = email});
    Tell("Your browser should open. If it doesn't, open this address yourself:\n\n" + address +
         "\n\nWaiting five minutes for your answer there ...");
    if (!OpenInBrowser(address, fileMask)) Tell("(The browser could not be opened.)");
  }

  std::string AwaitCode() {
    const auto answer = server_.Await(secrets_.State, kPatience);
    if (!answer) throw NoGrant{ResultCode::kNoAnswer, "No answer came in five minutes."};
    if (answer->Code.empty()) {
      throw NoGrant{ResultCode::kRefused, "Access was not granted (" + Plain(answer->Error) + ")."};
    }
    return answer->Code;
  }

  Grant MakeGrant(Session& session, const std::string& code) {
    const ServiceReply reply = AskForToken(
        session, addresses_.Token, CodeForm(client_, {code, server_.Address(), secrets_.Verifier}));
    Require(reply.Verdict, addresses_.Token);
    const auto tokens = ReadTokenAnswer(reply.Body);
    if (!tokens || tokens->RefreshToken.empty()) {
      throw NoGrant{ResultCode::kNoAnswer, "The service gave no lasting access."};
    }
    if (!HoldsScope(tokens->Scope, TheScope())) {
      throw NoGrant{ResultCode::kRefused, "Access to the reports was left out of the consent."};
    }
    const PublisherAccount account = FindAccount(session, tokens->AccessToken);
    Tell("Connected to " + account.Name + ".");
    return {tokens->RefreshToken, client_, account.Name, account.Created};
  }

  PublisherAccount FindAccount(Session& session, const std::string& token) {
    std::vector<PublisherAccount> accounts;
    std::string next;
    for (int pages = 0; pages < kMostPages; ++pages) {
      const ServiceReply reply = AskWithToken(session, addresses_.Api + AccountsPath(next), token);
      Require(reply.Verdict, addresses_.Api);
      auto page = ReadAccountPage(reply.Body);
      if (!page) throw NoGrant{ResultCode::kNoAnswer, "The list of accounts can't be understood."};
      for (PublisherAccount& account : page->Accounts) accounts.push_back(std::move(account));
      next = page->NextPage;
      if (next.empty()) break;
    }
    const PublisherAccount* const chosen = ChooseAccount(accounts);
    if (chosen == nullptr) {
      throw NoGrant{ResultCode::kRefused, "This sign-in has no publisher account that is open."};
    }
    return *chosen;
  }

  void Require(const ServiceVerdict& verdict, const std::string& address) {
    if (verdict.Code == ResultCode::kSuccess) return;
    throw NoGrant{verdict.Code, WordsFor(verdict, address)};
  }

  void Keep(const Grant& grant) {
    if (SaveGrant(GrantFolder(), name_, grant)) return;
    throw NoGrant{ResultCode::kNoConnection, "The grant could not be kept in " + GrantFolder()};
  }

  const CurlLibrary& curl_;
  ClientIdentity client_;
  ServiceAddresses addresses_ = TheService();
  LoopbackServer server_;
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
  const CryptoLibrary crypto = LoadCrypto();
  const CurlLibrary curl = LoadCurl();
  if (!crypto.Loaded() || !curl.Loaded()) {
    Tell("libcurl or libcrypto is missing.");
    return static_cast<int>(ResultCode::kNoConnection);
  }
  try {
    const std::string name = Authorization(crypto, curl, client).Run(email, fileMask);
    std::puts(name.c_str());
    return std::fflush(stdout) == 0 ? 0 : static_cast<int>(ResultCode::kNoConnection);
  } catch (const NoGrant& none) {
    Tell("\n" + none.Words);
    return static_cast<int>(none.Code);
  }
}

}  // namespace quillbox
