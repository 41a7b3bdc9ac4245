#include "oauth/authorization.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace quillbox {
namespace {

constexpr std::string_view kScopeEnd = "adsense.readonly";

bool LeadsToThisMachine(std::string_view address) {
  for (const std::string_view host : {"http://127.0.0.1", "http://[::1]", "http://localhost"}) {
    if (!address.starts_with(host)) continue;
    std::string_view rest = address.substr(host.size());
    if (rest.starts_with(':')) {
      rest.remove_prefix(std::min(rest.find_first_not_of("0123456789", 1), rest.size()));
    }
    return (rest.empty() || rest.front() == '/') && rest.find('#') == std::string_view::npos;
  }
  return false;
}

bool HoldsScope(std::string_view scopes) {
  while (!scopes.empty()) {
    const std::size_t end = std::min(scopes.find(' '), scopes.size());
    if (scopes.substr(0, end).ends_with(kScopeEnd)) return true;
    scopes.remove_prefix(std::min(end + 1, scopes.size()));
  }
  return false;
}

std::string ErrorIn(const FormFields& fields) {
  if (FieldOf(fields, "response_type") != "code") return "unsupported_response_type";
  if (!HoldsScope(FieldOf(fields, "scope"))) return "invalid_scope";
  const std::string method = FieldOf(fields, "code_challenge_method");
  const bool known = method.empty() || method == "plain" || method == "S256";
  return known && !FieldOf(fields, "code_challenge").empty() ? "" : "invalid_request";
}

std::string Encode(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string encoded;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 128 && std::isalnum(byte) != 0) {
      encoded += c;
    } else {
      encoded += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
    }
  }
  return encoded;
}

}  // namespace

std::optional<Authorization> ParseAuthorization(const FormFields& fields,
                                                const std::string& clientId) {
  Authorization wish;
  wish.RedirectUri = FieldOf(fields, "redirect_uri");
  if (FieldOf(fields, "client_id") != clientId || !LeadsToThisMachine(wish.RedirectUri)) {
    return std::nullopt;
  }
  wish.Scope = FieldOf(fields, "scope");
  wish.Challenge = FieldOf(fields, "code_challenge");
  if (FieldOf(fields, "code_challenge_method") == "S256") wish.Method = ChallengeMethod::kS256;
  wish.State = FieldOf(fields, "state");
  wish.LoginHint = FieldOf(fields, "login_hint");
  wish.Error = ErrorIn(fields);
  return wish;
}

std::string RedirectWith(const Authorization& authorization, const std::string& name,
                         const std::string& value) {
  const bool hasQuery = authorization.RedirectUri.find('?') != std::string::npos;
  std::string address =
      authorization.RedirectUri + (hasQuery ? "&" : "?") + name + "=" + Encode(value);
  if (!authorization.State.empty()) address += "&state=" + Encode(authorization.State);
  return address;
}

}  // namespace quillbox
