#include "api/publisher_accounts.h"

#include <algorithm>
#include <iterator>

#include "api/json.h"
#include "api/wanted_report.h"
#include "text/escaping.h"

namespace quillbox {
namespace {

constexpr std::string_view kNameBeginning = "accounts/";

bool MayStandInName(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-' ||
         c == '_';
}

}  // namespace

bool IsAccountName(std::string_view name) {
  if (!name.starts_with(kNameBeginning)) return false;
  name.remove_prefix(kNameBeginning.size());
  return !name.empty() && std::ranges::all_of(name, MayStandInName);
}

std::optional<AccountPage> ReadAccountPage(std::string_view json) {
  const auto document = ParseObject(json);
  if (!document) return std::nullopt;
  AccountPage page;
  page.NextPage = TextMember(*document, "nextPageToken");
  const Json::array_t* const accounts = ArrayMember(*document, "accounts");
  if (accounts == nullptr) return page;
  for (const Json& account : *accounts) {
    std::string name = TextMember(account, "name");
    if (!IsAccountName(name)) continue;
    page.Accounts.push_back({name, TextMember(account, "displayName"), TextMember(account, "state"),
                             ParseDay(TextMember(account, "createTime").substr(0, 10))});
  }
  return page;
}

std::string AccountsPath(const std::string& pageToken) {
  return pageToken.empty() ? "/v2/accounts" : "/v2/accounts?pageToken=" + PercentEncode(pageToken);
}

std::string ReportPath(const std::string& account, const std::string& query) {
  return "/v2/" + account + "/reports:generate?" + query;
}

std::vector<PublisherAccount> OpenAccounts(std::span<const PublisherAccount> accounts) {
  std::vector<PublisherAccount> open;
  for (const char* const state : {"READY", "NEEDS_ATTENTION"}) {
    std::ranges::copy_if(accounts, std::back_inserter(open),
                         [&](const PublisherAccount& account) { return account.State == state; });
    if (!open.empty()) break;
  }
  return open;
}

}  // namespace quillbox
