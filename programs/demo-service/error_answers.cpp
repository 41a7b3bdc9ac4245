#include "error_answers.h"

#include <nlohmann/json.hpp>

namespace quillbox {
namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kJson = "application/json; charset=UTF-8";

const char* StatusName(int status) {
  switch (status) {
    case 400:
      return "INVALID_ARGUMENT";
    case 401:
      return "UNAUTHENTICATED";
    case 403:
      return "PERMISSION_DENIED";
    case 404:
      return "NOT_FOUND";
    case 429:
      return "RESOURCE_EXHAUSTED";
    case 500:
      return "INTERNAL";
    case 503:
      return "UNAVAILABLE";
    case 504:
      return "DEADLINE_EXCEEDED";
    default:
      return "UNKNOWN";
  }
}

}  // namespace

GoodAnswer SignInPage() {
  return {200,
          "<html><head><title>Sign in</title></head><body>"
          "<form method=\"post\" action=\"/accounts/ServiceLoginAuth\">"
          "<input name=\"Email\"><input name=\"Passwd\" type=\"password\">"
          "<input type=\"submit\" value=\"Sign in\"></form></body></html>\n"};
}

GoodAnswer PlainPage(int status, const std::string& what) {
  return {status,
          "<html><head><title>" + what + "</title></head><body>" + what + "</body></html>\n"};
}

GoodAnswer ApiError(int status, const std::string& message) {
  const Json error = {
      {"error", {{"code", status}, {"message", message}, {"status", StatusName(status)}}}};
  GoodAnswer answer{status, error.dump(2) + "\n", kJson};
  if (status == 401) {
    answer.Headers.emplace("WWW-Authenticate", "Bearer realm=\"demo\", error=\"invalid_token\"");
  }
  return answer;
}

GoodAnswer TokenError(int status, const std::string& error, const std::string& description) {
  const Json body = {{"error", error}, {"error_description", description}};
  return {status, body.dump(2) + "\n", kJson, {{"Cache-Control", "no-store"}}};
}

GoodAnswer ErrorAt(const std::string& path, int status) {
  const std::string what = "Error " + std::to_string(status);
  if (path.starts_with("/v2")) return ApiError(status, what);
  if (path == "/token") return TokenError(status, "internal_failure", what);
  return PlainPage(status, what);
}

GoodAnswer RefusalAt(const std::string& path) {
  if (path.starts_with("/accounts/")) return SignInPage();
  if (path == "/token") {
    return TokenError(400, "invalid_grant", "Token has been expired or revoked.");
  }
  return ErrorAt(path, 403);
}

}  // namespace quillbox
