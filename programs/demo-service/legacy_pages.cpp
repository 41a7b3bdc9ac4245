#include "legacy_pages.h"

#include <random>
#include <string_view>

#include "legacy_report.h"

namespace quillbox {
namespace {

// The cookie's name in front of its value, as both headers write it.
constexpr std::string_view kCookiePrefix = "SID=";

}  // namespace

LegacyPages::LegacyPages(const ServiceOptions& options, const DemoClock& clock)
    : passwords_(options.Accounts), seed_(options.Seed), clock_(clock) {}

GoodAnswer LegacyPages::SignIn(const std::string& email, const std::string& password) {
  const auto account = passwords_.find(email);
  if (account == passwords_.end() || account->second != password) return SignInPage();
  std::random_device random;
  const std::string cookie = std::to_string(random()) + std::to_string(random());
  {
    const std::lock_guard lock(mutex_);
    emails_[cookie] = email;
  }
  return {302,
          "OK\n",
          "text/plain",
          {{"Set-Cookie", std::string(kCookiePrefix) + cookie + "; Path=/; Secure; HttpOnly"},
           {"Location", "/adsense/gaiaauth"}}};
}

std::string LegacyPages::AccountOf(const std::string& cookieHeader) const {
  const std::string_view header = cookieHeader;
  const std::size_t begin = header.find(kCookiePrefix);
  if (begin == std::string_view::npos) return "";
  std::string_view value = header.substr(begin + kCookiePrefix.size());
  value = value.substr(0, value.find(';'));
  const std::lock_guard lock(mutex_);
  const auto found = emails_.find(std::string(value));
  return found == emails_.end() ? "" : found->second;
}

GoodAnswer LegacyPages::Report(const std::multimap<std::string, std::string>& parameters,
                               const std::string& account) const {
  if (account.empty()) return SignInPage();
  const auto query = ParseReportQuery(parameters);
  if (!query) return {400, "No such report\n", "text/plain"};
  return {200, ReportTable(*query, seed_, account, clock_.Now()), "text/tab-separated-values"};
}

}  // namespace quillbox
