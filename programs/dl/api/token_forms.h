// The forms that go to the endpoints for tokens.
#pragma once

#include <string>

namespace quillbox {

// Who asks, as the service knows it: the program, not the person.
struct ClientIdentity {
  std::string Id;
  std::string Secret;  // empty when the service wants none
};

// A fresh access token for a grant.
std::string RefreshForm(const ClientIdentity& client, const std::string& refreshToken);

// The end of a grant, and of its access tokens (RFC 7009, 2.1). `client`: to which it was granted.
std::string RevokeForm(const ClientIdentity& client, const std::string& refreshToken);

struct ConsentCode {
  std::string Code;
  std::string Redirect;  // the address to which it came
  std::string Verifier;  // of PKCE
};

// A grant for the code that a person's consent brought.
std::string CodeForm(const ClientIdentity& client, const ConsentCode& consent);

}  // namespace quillbox
