#include "api/token_forms.h"

#include "text/escaping.h"

namespace quillbox {
namespace {

std::string ClientFields(const ClientIdentity& client) {
  std::string fields = "&client_id=" + PercentEncode(client.Id);
  if (!client.Secret.empty()) fields += "&client_secret=" + PercentEncode(client.Secret);
  return fields;
}

}  // namespace

std::string RefreshForm(const ClientIdentity& client, const std::string& refreshToken) {
  return "grant_type=refresh_token&refresh_token=" + PercentEncode(refreshToken) +
         ClientFields(client);
}

std::string RevokeForm(const ClientIdentity& client, const std::string& refreshToken) {
  return "token_type_hint=refresh_token&token=" + PercentEncode(refreshToken) +
         ClientFields(client);
}

std::string CodeForm(const ClientIdentity& client, const ConsentCode& consent) {
  return "grant_type=authorization_code&code=" + PercentEncode(consent.Code) +
         "&redirect_uri=" + PercentEncode(consent.Redirect) +
         "&code_verifier=" + PercentEncode(consent.Verifier) + ClientFields(client);
}

}  // namespace quillbox
