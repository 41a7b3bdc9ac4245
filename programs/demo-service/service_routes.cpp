// What is behind each address.
#include <string_view>

#include "error_answers.h"
#include "service.h"

namespace quillbox {

void Service::AddOldRoutes() {
  const Maker signIn = [this](const auto& request, const auto& account) {
    return SignIn(request, account);
  };
  const Maker report = [this](const auto& request, const auto& account) {
    return Report(request, account);
  };
  AddRoute("POST", "/accounts/ServiceLoginAuth", signIn);
  AddRoute("GET", "/accounts/ServiceLoginAuth", signIn);
  AddRoute("GET", "/adsense/gaiaauth", [](const auto&, const std::string& account) {
    return account.empty() ? SignInPage() : PlainPage(200, "Welcome, you are signed in.");
  });
  AddRoute("GET", "/adsense/report/aggregate", report);
  AddRoute("GET", "/adsense/report/referrals", report);
  // Without a line end: readers of the version count each character.
  AddRoute("GET", "/versionqb.txt", [this](const auto&, const auto&) {
    return GoodAnswer{200, options_.VersionText, "text/plain"};
  });
}

void Service::AddApiRoutes() {
  AddRoute("GET", "/authorize",
           [this](const auto& request, const auto&) { return consent_.Ask(request.params); });
  AddRoute("POST", "/authorize",
           [this](const auto& request, const auto&) { return consent_.Decide(request.params); });
  AddRoute("POST", "/token",
           [this](const auto& request, const auto&) { return tokens_.Token(request.params); });
  AddRoute("POST", "/revoke",
           [this](const auto& request, const auto&) { return tokens_.Revoke(request.params); });
  AddRoute("GET", "/v2/accounts", [this](const auto& request, const auto& account) {
    return api_.Accounts(QueryFields(request.target), account);
  });
  AddRoute("GET", "/v2/accounts/([^/]+)/reports:generate",
           [this](const auto& request, const auto& account) {
             return api_.Report(QueryFields(request.target), request.matches[1], account);
           });
  AddRoute("GET", "/v2/.*",
           [](const auto&, const auto&) { return ApiError(404, "There is no such method."); });
}

void Service::AddFaultRoute() {
  const auto switchFault = [this](const httplib::Request& request, httplib::Response& response) {
    SwitchFault(request, response);
  };
  server_.Get("/demo/fail", switchFault);
  server_.Post("/demo/fail", switchFault);
}

void Service::AddRoute(const char* method, const char* path, const Maker& make) {
  const auto handler = [this, make](const httplib::Request& request, httplib::Response& response) {
    AnswerRequest(make, request, response);
  };
  std::string_view(method) == "POST" ? server_.Post(path, handler) : server_.Get(path, handler);
}

}  // namespace quillbox
