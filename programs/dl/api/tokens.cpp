#include "api/tokens.h"

#include <algorithm>

#include "api/json.h"
#include "api/publisher_accounts.h"
#include "api/wanted_report.h"
#include "text/code_page.h"
#include "text/escaping.h"
#include "text/text_list.h"

namespace quillbox {
namespace {

std::string ClientFields(const ClientIdentity& client) {
  std::string fields = "&client_id=" + PercentEncode(client.Id);
  if (!client.Secret.empty()) fields += "&client_secret=" + PercentEncode(client.Secret);
  return fields;
}

// Far more than any service's, and little enough for a grant's file.
constexpr std::size_t kLongestToken = 16 << 10;

bool IsToken(std::string_view text) {
  return text.size() <= kLongestToken &&
         std::ranges::all_of(text, [](char c) { return c > ' ' && c <= '~'; });
}

// Names in the file: they must not change.
constexpr const char* kRefreshToken = "refresh_token";
constexpr const char* kClientId = "client_id";
constexpr const char* kClientSecret = "client_secret";
constexpr const char* kAccount = "account";
constexpr const char* kCreated = "account_created";

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

std::optional<TokenAnswer> ReadTokenAnswer(std::string_view json) {
  const auto document = ParseObject(json);
  if (!document) return std::nullopt;
  TokenAnswer answer{.AccessToken = TextMember(*document, "access_token"),
                     .RefreshToken = TextMember(*document, "refresh_token"),
                     .Scope = TextMember(*document, "scope"),
                     .Lifetime = std::nullopt};
  if (!EqualIgnoringCase(TextMember(*document, "token_type"), "bearer")) return std::nullopt;
  if (answer.AccessToken.empty() || !IsToken(answer.AccessToken)) return std::nullopt;
  if (!IsToken(answer.RefreshToken)) return std::nullopt;
  const auto lifetime = NumberMember(*document, "expires_in");
  // A year stands for everything longer, so that no sum of times can overflow.
  if (lifetime) answer.Lifetime = std::chrono::seconds(std::clamp(*lifetime, 0LL, 31'536'000LL));
  return answer;
}

bool HoldsScope(std::string_view scope, std::string_view wanted) {
  if (scope.empty()) return true;
  const auto granted = SplitText(scope, " ");
  return std::ranges::find(granted, wanted) != granted.end();
}

bool SaysTokenIsGone(std::string_view json) {
  const auto document = ParseObject(json);
  return document && TextMember(*document, "error") == "invalid_token";
}

std::string GrantText(const Grant& grant) {
  Json document = {{kRefreshToken, grant.RefreshToken},
                   {kClientId, grant.Client.Id},
                   {kClientSecret, grant.Client.Secret},
                   {kAccount, grant.Account}};
  if (grant.Created) document[kCreated] = DayText(*grant.Created);
  // Texts from the environment may be anything; what isn't UTF-8 could not be a client's either.
  return document.dump(2, ' ', true, Json::error_handler_t::replace) + "\n";
}

std::optional<Grant> ParseGrant(std::string_view text) {
  const auto document = ParseObject(text);
  if (!document) return std::nullopt;
  Grant grant{.RefreshToken = TextMember(*document, kRefreshToken),
              .Client = {TextMember(*document, kClientId), TextMember(*document, kClientSecret)},
              .Account = TextMember(*document, kAccount),
              .Created = ParseDay(TextMember(*document, kCreated))};
  const bool usable =
      !grant.RefreshToken.empty() && !grant.Client.Id.empty() && IsAccountName(grant.Account);
  return usable ? std::optional(std::move(grant)) : std::nullopt;
}

}  // namespace quillbox
