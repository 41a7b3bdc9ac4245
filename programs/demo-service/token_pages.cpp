#include "token_pages.h"

#include <nlohmann/json.hpp>

#include "error_answers.h"

namespace quillbox {
namespace {

using Json = nlohmann::ordered_json;

GoodAnswer Granted(const Tokens& tokens, std::chrono::seconds life, bool withGrant) {
  Json body = {{"access_token", tokens.Access}, {"expires_in", life.count()}};
  if (withGrant) body["refresh_token"] = tokens.Grant;
  body["scope"] = tokens.Scope;
  body["token_type"] = "Bearer";
  return {
      200, body.dump(2) + "\n", "application/json; charset=utf-8", {{"Cache-Control", "no-store"}}};
}

GoodAnswer Missing(const std::string& what) {
  return TokenError(400, "invalid_request", "Missing required parameter: " + what);
}

GoodAnswer UnknownClient() {
  return TokenError(401, "invalid_client", "The OAuth client was not found.");
}

}  // namespace

bool TokenPages::IsFromClient(const FormFields& fields) const {
  return FieldOf(fields, "client_id") == options_.ClientId &&
         FieldOf(fields, "client_secret") == options_.ClientSecret;
}

GoodAnswer TokenPages::Token(const FormFields& fields) {
  const std::string type = FieldOf(fields, "grant_type");
  if (type.empty()) return Missing("grant_type");
  if (!IsFromClient(fields)) return UnknownClient();
  if (type == "authorization_code") return FromCode(fields);
  if (type == "refresh_token") return FromGrant(fields);
  return TokenError(400, "unsupported_grant_type", "Invalid grant_type: " + type);
}

GoodAnswer TokenPages::FromCode(const FormFields& fields) {
  for (const char* name : {"code", "redirect_uri", "code_verifier"}) {
    if (FieldOf(fields, name).empty()) return Missing(name);
  }
  const auto tokens = grants_.Redeem(FieldOf(fields, "code"), FieldOf(fields, "redirect_uri"),
                                     FieldOf(fields, "code_verifier"));
  if (!tokens) return TokenError(400, "invalid_grant", "Bad Request");
  return Granted(*tokens, grants_.TokenLife(), true);
}

GoodAnswer TokenPages::FromGrant(const FormFields& fields) {
  const std::string grant = FieldOf(fields, "refresh_token");
  if (grant.empty()) return Missing("refresh_token");
  const auto tokens = grants_.Refresh(grant);
  if (!tokens) return RefusalAt("/token");
  return Granted(*tokens, grants_.TokenLife(), tokens->Grant != grant);
}

GoodAnswer TokenPages::Revoke(const FormFields& fields) {
  for (const char* name : {"token", "client_id"}) {
    if (FieldOf(fields, name).empty()) return Missing(name);
  }
  if (!IsFromClient(fields)) return UnknownClient();
  if (grants_.Revoke(FieldOf(fields, "token"))) return {200, "{}\n", "application/json"};
  return TokenError(400, "invalid_token", "Token expired or revoked");
}

}  // namespace quillbox
