#include "request/web_address.h"

#include <algorithm>

#include "text/code_page.h"

namespace quillbox {
namespace {

constexpr std::string_view kSignInPages = "/accounts/";

std::optional<Scheme> TakeScheme(std::string_view& address) {
  for (const auto& [prefix, scheme] : {std::pair{std::string_view("https://"), Scheme::kHttps},
                                       std::pair{std::string_view("http://"), Scheme::kHttp}}) {
    if (EqualIgnoringCase(address.substr(0, prefix.size()), prefix)) {
      address.remove_prefix(prefix.size());
      return scheme;
    }
  }
  return std::nullopt;
}

bool MayStandInHost(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
         std::string_view(".-_:[]").find(c) != std::string_view::npos;
}

}  // namespace

std::optional<WebAddress> ParseWebAddress(std::string_view address) {
  const std::optional<Scheme> scheme = TakeScheme(address);
  if (!scheme) return std::nullopt;
  const std::string_view host = address.substr(0, address.find_first_of("/?#"));
  if (host.empty() || !std::all_of(host.begin(), host.end(), MayStandInHost)) return std::nullopt;
  return WebAddress{*scheme, std::string(host), std::string(address.substr(host.size()))};
}

std::string SignInAddress(std::string_view host) {
  return "https://" + std::string(host) + "/accounts/ServiceLoginAuth";
}

bool AsksForSignIn(std::string_view address) {
  const std::optional<WebAddress> parsed = ParseWebAddress(address);
  return parsed && parsed->Path.starts_with(kSignInPages);
}

}  // namespace quillbox
