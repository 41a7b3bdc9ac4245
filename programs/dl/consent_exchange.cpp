#include "consent_exchange.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <span>
#include <utility>

#include "api/tokens.h"
#include "environment.h"
#include "service_questions.h"
#include "text/grant_name.h"

namespace quillbox {
namespace {

constexpr int kMostPages = 100;  // of accounts

void Require(const ServiceVerdict& verdict, const std::string& address) {
  if (verdict.Code == ResultCode::kSuccess) return;
  throw Outcome{verdict.Code, WordsFor(verdict, address)};
}

TokenAnswer FetchTokens(Session& session, const std::string& address, const std::string& form) {
  const ServiceReply reply = AskForToken(session, address, form);
  Require(reply.Verdict, address);
  auto tokens = ReadTokenAnswer(reply.Body);
  if (!tokens || tokens->RefreshToken.empty()) {
    throw Outcome{ResultCode::kNoAnswer, "The service gave no lasting access."};
  }
  if (!HoldsScope(tokens->Scope, TheScope())) {
    throw Outcome{ResultCode::kRefused, "Access to the reports was left out of the consent."};
  }
  return std::move(*tokens);
}

std::vector<PublisherAccount> FetchAccounts(Session& session, const std::string& api,
                                            const std::string& token) {
  std::vector<PublisherAccount> accounts;
  std::string next;
  for (int pages = 0; pages < kMostPages; ++pages) {
    const ServiceReply reply = AskWithToken(session, api + AccountsPath(next), token);
    Require(reply.Verdict, api);
    auto page = ReadAccountPage(reply.Body);
    if (!page) throw Outcome{ResultCode::kNoAnswer, "The list of accounts can't be understood."};
    std::ranges::move(page->Accounts, std::back_inserter(accounts));
    next = page->NextPage;
    if (next.empty()) break;
  }
  return accounts;
}

// Without padding, with "-" and "_": RFC 4648, 5.
std::string Base64Url(const Crypto& crypto, std::span<const unsigned char> bytes) {
  std::string encoded = crypto.Base64(bytes);
  std::erase(encoded, '=');
  for (char& c : encoded) c = c == '+' ? '-' : c == '/' ? '_' : c;
  return encoded;
}

}  // namespace

ExchangedCode ExchangeCode(const CurlLibrary& curl, const ClientIdentity& client,
                           const ConsentCode& consent) {
  const ServiceAddresses addresses = TheService();
  Session session = OpenSession(curl);
  const TokenAnswer tokens = FetchTokens(session, addresses.Token, CodeForm(client, consent));
  auto accounts = OpenAccounts(FetchAccounts(session, addresses.Api, tokens.AccessToken));
  if (accounts.empty()) {
    throw Outcome{ResultCode::kRefused, "This sign-in has no publisher account that is open."};
  }
  return {tokens.RefreshToken, std::move(accounts)};
}

std::optional<std::string> RandomText(const Crypto& crypto) {
  std::array<unsigned char, 32> bytes{};
  if (!crypto.FillRandomly(bytes)) return std::nullopt;
  return Base64Url(crypto, bytes);
}

std::optional<std::string> ChallengeOf(const Crypto& crypto, const std::string& verifier) {
  const auto digest = crypto.Sha256(verifier);
  return digest ? std::optional(Base64Url(crypto, *digest)) : std::nullopt;
}

std::optional<ConsentSecrets> MakeConsentSecrets(const Crypto& crypto) {
  const auto verifier = RandomText(crypto);
  const auto state = RandomText(crypto);
  const auto page = RandomText(crypto);
  if (!verifier || !state || !page) return std::nullopt;
  const auto challenge = ChallengeOf(crypto, *verifier);
  if (!challenge) return std::nullopt;
  return ConsentSecrets{*verifier, *challenge, *state, *page};
}

std::optional<std::string> MakeGrantName(const Crypto& crypto) {
  std::array<unsigned char, kGrantNameLetters> bytes{};
  if (!crypto.FillRandomly(bytes)) return std::nullopt;
  return GrantName(bytes);
}

}  // namespace quillbox
