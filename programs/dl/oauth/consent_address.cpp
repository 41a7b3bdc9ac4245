#include "oauth/consent_address.h"

#include "text/escaping.h"

namespace quillbox {

std::string ConsentAddress(const ConsentQuestion& question) {
  std::string address = question.Page + "?response_type=code";
  const auto add = [&](const char* key, const std::string& value) {
    address.append("&").append(key).append("=").append(PercentEncode(value));
  };
  add("client_id", question.ClientId);
  add("redirect_uri", question.Redirect);
  add("scope", question.Scope);
  add("state", question.State);
  add("code_challenge", question.Challenge);
  add("code_challenge_method", "S256");
  if (!question.Email.empty()) add("login_hint", question.Email);
  return address;
}

}  // namespace quillbox
