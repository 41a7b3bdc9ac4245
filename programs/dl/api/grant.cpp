#include "api/grant.h"

#include "api/json.h"
#include "api/publisher_accounts.h"
#include "api/wanted_report.h"

namespace quillbox {
namespace {

// Names in the file: they must not change.
constexpr const char* kRefreshToken = "refresh_token";
constexpr const char* kClientId = "client_id";
constexpr const char* kClientSecret = "client_secret";
constexpr const char* kAccount = "account";
constexpr const char* kCreated = "account_created";

}  // namespace

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
