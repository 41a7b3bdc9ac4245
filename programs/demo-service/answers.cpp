#include "answers.h"

#include <chrono>
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

namespace {

using namespace std::chrono_literals;

constexpr auto kDripPause = 1000ms;
constexpr auto kStallLimit = 10min;

void SetHead(const GoodAnswer& good, httplib::Response& response) {
  response.status = good.Status;
  for (const auto& [name, value] : good.Headers) response.set_header(name, value);
}

void Send(const GoodAnswer& good, httplib::Response& response) {
  SetHead(good, response);
  response.set_content(good.Body, good.ContentType);
}

// The answer announces its whole length and ends after the half of it.
void CutOff(const GoodAnswer& good, httplib::Response& response) {
  SetHead(good, response);
  const std::string half = good.Body.substr(0, good.Body.size() / 2);
  response.set_content_provider(good.Body.size(), good.ContentType,
                                [half](std::size_t offset, std::size_t, httplib::DataSink& sink) {
                                  if (offset == 0 && !half.empty())
                                    return sink.write(half.data(), half.size());
                                  return false;
                                });
}

void Drip(const GoodAnswer& good, FaultSwitch& faults, httplib::Response& response) {
  SetHead(good, response);
  response.set_content_provider(
      good.Body.size(), good.ContentType,
      [body = good.Body, &faults](std::size_t offset, std::size_t, httplib::DataSink& sink) {
        faults.Hold(kDripPause);
        return sink.write(&body[offset], 1);
      });
}

}  // namespace

void Answer(const FaultRule& rule, const std::string& path, const GoodAnswer& good,
            FaultSwitch& faults, httplib::Response& response) {
  switch (rule.Kind) {
    case Fault::kRefuse:
      return Send(RefusalAt(path), response);
    case Fault::kStatus:
      return Send(ErrorAt(path, rule.Status), response);
    case Fault::kStall:
      faults.Hold(kStallLimit);
      return Send(ErrorAt(path, 503), response);
    case Fault::kDrip:
      return Drip(good, faults, response);
    case Fault::kCut:
      return CutOff(good, response);
    case Fault::kDowngrade:
      return response.set_redirect("http://localhost" + path);
    default:
      return Send(good, response);
  }
}

}  // namespace quillbox
