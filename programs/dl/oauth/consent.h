// A person's consent in the browser: the page that asks for it, the requests that bring the answer,
// and the pages of ours that follow.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "api/publisher_accounts.h"

namespace quillbox {

// The requests with which a browser brings a person's answers.

// The fields of a query, decoded. Of several of one name the last holds.
using QueryFields = std::map<std::string, std::string>;

// The field's value; empty when there is none.
std::string FieldOf(const QueryFields& fields, const std::string& name);

// Whether `received`, the beginning of a request, holds its head to the end.
bool IsWholeHead(std::string_view received);

// "/x?y" of "GET /x?y HTTP/1.1". Nothing for other methods.
std::optional<std::string_view> TargetOf(std::string_view head);

// The query of a GET of "/", from the request's head. Nothing for all else, such as the browser's
// wish for an icon.
std::optional<QueryFields> ReadPageRequest(std::string_view head);

// The address of the page on which a person consents.

struct ConsentQuestion {
  std::string Page;  // the service's address, without a query
  std::string ClientId;
  std::string Scope;
  std::string Redirect;   // where the answer goes
  std::string State;      // comes back with it
  std::string Challenge;  // of PKCE, by SHA-256
  std::string Email;      // UTF-8; whose account it is, empty if nobody has said
};

std::string ConsentAddress(const ConsentQuestion& question);

// The answer of the consent page, as the redirect from it brings it.

struct ConsentAnswer {
  std::string State;
  std::string Code;   // empty when there was no consent
  std::string Error;  // "access_denied", say; empty with a code
};

// Nothing unless the query has a state and either a code or an error.
std::optional<ConsentAnswer> ReadConsent(const QueryFields& query);

// `sentence`: HTML.
std::string SentencePage(const std::string& sentence);

// Which of the accounts it shall be. The answer is a GET of "/" with two fields, `state` as it is
// given here, and `account`, the chosen one's name.
std::string ChoicePage(const std::string& state, std::span<const PublisherAccount> accounts);

}  // namespace quillbox
