// The list of accounts to which a grant gives access.
#pragma once

#include <chrono>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillbox {

struct PublisherAccount {
  std::string Name;   // "accounts/pub-1234", fit to stand in an address
  std::string Title;  // for people, UTF-8; may be empty
  std::string State;  // "READY", "NEEDS_ATTENTION", "CLOSED"
  std::optional<std::chrono::sys_days> Created;
};

struct AccountPage {
  std::vector<PublisherAccount> Accounts;
  std::string NextPage;  // token of the next page, empty on the last
};

// Accounts whose name can't stand in an address are left out. Nothing when it isn't such a list.
std::optional<AccountPage> ReadAccountPage(std::string_view json);

// "/v2/accounts", for the page with that token; empty for the first one.
std::string AccountsPath(const std::string& pageToken);

// "/v2/accounts/pub-1234/reports:generate?..."
std::string ReportPath(const std::string& account, const std::string& query);

// "accounts/" and letters, digits, "-", "_" alone.
bool IsAccountName(std::string_view name);

// Those that are ready; without any those that only need attention. May be empty.
std::vector<PublisherAccount> OpenAccounts(std::span<const PublisherAccount> accounts);

}  // namespace quillbox
