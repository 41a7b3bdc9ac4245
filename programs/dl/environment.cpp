#include "environment.h"

#include <cstdlib>

namespace quillbox {
namespace {

std::string EnvironmentText(const char* name) {
  const char* const text = std::getenv(name);
  return text == nullptr ? "" : text;
}

// The variables that users of OpenSSL and of the curl command know; libcurl itself reads neither.
std::string AuthorityFile() {
  const std::string file = EnvironmentText("SSL_CERT_FILE");
  return file.empty() ? EnvironmentText("CURL_CA_BUNDLE") : file;
}

}  // namespace

ServiceAddresses TheService() {
  const std::string host = EnvironmentText("QUILLBOX_API");
  if (host.empty()) {
    return {QUILLBOX_OAUTH_CONSENT_ADDRESS, QUILLBOX_OAUTH_TOKEN_ADDRESS,
            QUILLBOX_OAUTH_REVOKE_ADDRESS, QUILLBOX_API_ADDRESS};
  }
  const std::string base = "https://" + host;
  return {base + "/authorize", base + "/token", base + "/revoke", base};
}

std::string TheScope() {
  return QUILLBOX_OAUTH_SCOPE;
}

ClientIdentity TheClient() {
  const std::string id = EnvironmentText("QUILLBOX_OAUTH_CLIENT_ID");
  if (!id.empty()) return {id, EnvironmentText("QUILLBOX_OAUTH_CLIENT_SECRET")};
  return {QUILLBOX_OAUTH_CLIENT_ID, QUILLBOX_OAUTH_CLIENT_SECRET};
}

std::string TheOldServiceHost() {
  const std::string host = EnvironmentText("QUILLBOX_SERVICE");
  return host.empty() ? QUILLBOX_SERVICE_HOST : host;
}

Limits TheLimits() {
  return ShortenedLimits(EnvironmentText("QUILLBOX_DL_LIMITS"));
}

Session OpenSession(const CurlLibrary& curl) {
  return Session(curl, TheLimits(), AuthorityFile());
}

}  // namespace quillbox
