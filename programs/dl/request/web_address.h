// Web addresses, as far as the fetch program looks into them itself.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillbox {

enum class Scheme { kHttps, kHttp };

struct WebAddress {
  Scheme Protocol = Scheme::kHttps;
  std::string Host;  // with the port if one is given
  std::string Path;  // with the query; empty or beginning with "/", "?" or "#"
};

// Nothing for other schemes, and for a host that holds anything but letters, digits and . - _ : [
// ]: a user name in front of the host is refused too, so that no two readers of the address can
// disagree on which host it names.
std::optional<WebAddress> ParseWebAddress(std::string_view address);

// Where the sign-in for an address on `host` is sent. Always https.
std::string SignInAddress(std::string_view host);

// Whether the address is one of the pages that ask for a sign-in.
bool AsksForSignIn(std::string_view address);

}  // namespace quillbox
