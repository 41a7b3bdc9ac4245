#include "api_pages.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "report_answer.h"
#include "text/escaping.h"

namespace quillbox {
namespace {

constexpr const char* kNotToBeTrusted = "This program is not known here, or leads elsewhere.";

std::string HiddenField(const std::string& name, const std::string& value) {
  return "<input type=\"hidden\" name=\"" + HtmlText(name) + "\" value=\"" + HtmlText(value) +
         "\">";
}

std::string FormOf(const FormFields& fields, const std::string& email) {
  std::string form = "<form method=\"post\" action=\"/authorize\">";
  for (const auto& [name, value] : fields) form += HiddenField(name, value);
  return form + HiddenField("account", email) + "<p>" + HtmlText(email) +
         " <button name=\"decision\" value=\"allow\">Allow</button>"
         " <button name=\"decision\" value=\"deny\">Deny</button></p></form>\n";
}

GoodAnswer Redirect(const std::string& address) {
  return {302, "", "text/plain", {{"Location", address}, {"Cache-Control", "no-store"}}};
}

GoodAnswer RefusedWith(const Authorization& wish, const std::string& error) {
  return Redirect(RedirectWith(wish, "error", error));
}

}  // namespace

ConsentPage::ConsentPage(const ApiOptions& options, std::set<std::string> emails, Grants& grants)
    : options_(options), emails_(std::move(emails)), grants_(grants) {}

GoodAnswer ConsentPage::Ask(const FormFields& fields) {
  const auto wish = ParseAuthorization(fields, options_.ClientId);
  if (!wish) return PlainPage(400, kNotToBeTrusted);
  if (!wish->Error.empty()) return RefusedWith(*wish, wish->Error);
  if (options_.Asks == Consent::kDeny) return RefusedWith(*wish, "access_denied");
  if (options_.Asks == Consent::kAuto) {
    const bool hinted = !wish->LoginHint.empty() || emails_.empty();
    return Allow(*wish, hinted ? wish->LoginHint : *emails_.begin());
  }
  std::string forms;
  for (const std::string& email : emails_) forms += FormOf(fields, email);
  return {200,
          "<html><head><meta charset=\"utf-8\"><title>Allow access?</title></head><body>"
          "<h1>Quillbox wants to read your reports</h1>\n" +
              forms + "</body></html>\n",
          "text/html; charset=utf-8"};
}

GoodAnswer ConsentPage::Decide(const FormFields& fields) {
  const auto wish = ParseAuthorization(fields, options_.ClientId);
  if (!wish) return PlainPage(400, kNotToBeTrusted);
  if (!wish->Error.empty()) return RefusedWith(*wish, wish->Error);
  if (FieldOf(fields, "decision") != "allow") return RefusedWith(*wish, "access_denied");
  return Allow(*wish, FieldOf(fields, "account"));
}

GoodAnswer ConsentPage::Allow(const Authorization& wish, const std::string& email) {
  if (!emails_.contains(email)) return RefusedWith(wish, "access_denied");
  return Redirect(RedirectWith(wish, "code", grants_.NewCode(email, wish)));
}

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

namespace {

GoodAnswer JsonAnswer(const std::string& body) {
  return {200, body, "application/json; charset=UTF-8"};
}

GoodAnswer NoToken() {
  return ApiError(401,
                  "Request had invalid authentication credentials. Expected OAuth 2 access token.");
}

}  // namespace

ApiPages::ApiPages(const ServiceOptions& options, const std::set<std::string>& emails,
                   const DemoClock& clock)
    : options_(options.Api),
      seed_(options.Seed),
      publishers_(emails, options.Api.PublishersPerEmail, options.Api.ReadyPublishers),
      clock_(clock) {}

GoodAnswer ApiPages::Accounts(const FormFields& query, const std::string& email) const {
  if (email.empty()) return NoToken();
  try {
    CheckParameters(query, {"pageSize", "pageToken"});
  } catch (const BadReportRequest& problem) {
    return ApiError(400, problem.what());
  }
  const auto page = PublisherPageJson(publishers_.Of(email), FieldOf(query, "pageSize"),
                                      FieldOf(query, "pageToken"), options_.PageLimit);
  return page ? JsonAnswer(*page) : ApiError(400, "pageSize or pageToken is wrong");
}

GoodAnswer ApiPages::Report(const FormFields& query, const std::string& publisher,
                            const std::string& email) const {
  if (email.empty()) return NoToken();
  const auto owner = publishers_.Find(publisher);
  if (!owner || owner->Email != email) {
    return ApiError(403, "The caller does not have permission");
  }
  try {
    const Moment now = clock_.Now();
    ReportRequest request = ParseReportRequest(query, now.Today);
    if (request.First < now.Today - options_.History) {
      return ApiError(400, "startDate lies too long ago");
    }
    request.Limit = std::min(request.Limit, options_.RowLimit);
    const ReportRows rows = MakeReportRows(request, seed_, owner->Ready ? email : "", now);
    const std::string currency = request.Currency.empty() ? options_.Currency : request.Currency;
    return JsonAnswer(ReportJson(request, rows, currency, options_.Warnings));
  } catch (const BadReportRequest& problem) {
    return ApiError(400, problem.what());
  }
}

}  // namespace quillbox
