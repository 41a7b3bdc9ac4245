// What the environment and the build tell a run.
#pragma once

#include <string>

#include "api/tokens.h"
#include "request/limits.h"
#include "session.h"

namespace quillbox {

// Where the current API is. Each address is of https and has neither query nor slash at its
// end.
struct ServiceAddresses {
  std::string Consent;  // the page on which a person consents
  std::string Token;    // where codes and grants become access tokens
  std::string Revoke;   // where grants are given back
  std::string Api;      // what "/v2/accounts" is appended to
};

// The build's, or those of a test's or demo's service, "https://" and QUILLBOX_API ("host:port").
ServiceAddresses TheService();

// What the program asks a person to consent to.
std::string TheScope();

// Who the program is to the service: QUILLBOX_OAUTH_CLIENT_ID and _SECRET of the environment if the
// first is set, else those of the build. An empty id means that nobody has said.
ClientIdentity TheClient();

// The host to which e-mail and password go: QUILLBOX_SERVICE, else the build's.
std::string TheOldServiceHost();

// The limits, shortened if QUILLBOX_DL_LIMITS says so.
Limits TheLimits();

// A conversation within the limits and with the authorities that the environment names. `curl` must
// be loaded and outlive it.
Session OpenSession(const CurlLibrary& curl);

}  // namespace quillbox
