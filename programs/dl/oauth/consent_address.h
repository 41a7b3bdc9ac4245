// The address of the page on which a person consents.
#pragma once

#include <string>

namespace quillbox {

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

}  // namespace quillbox
