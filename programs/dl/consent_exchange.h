// From the code of a consent to lasting access.
#pragma once

#include <string>
#include <vector>

#include "api/publisher_accounts.h"
#include "api/tokens.h"
#include "curl.h"

namespace quillbox {

struct ExchangedCode {
  std::string RefreshToken;                // to be kept like a password
  std::vector<PublisherAccount> Accounts;  // those that it can be for, at least one
};

// Asks the service within one run's limits, which begin here. Throws the Outcome of the step that
// failed. `curl` must be loaded.
ExchangedCode ExchangeCode(const CurlLibrary& curl, const ClientIdentity& client,
                           const ConsentCode& consent);

}  // namespace quillbox
