#include "service.h"

#include <openssl/ssl.h>
#include <sys/socket.h>

#include <chrono>
#include <ctime>
#include <iostream>
#include <set>
#include <stdexcept>
#include <string_view>

namespace quillbox {
namespace {

constexpr const char* kNames = "DNS:localhost,IP:127.0.0.1,IP:::1";
constexpr std::string_view kBearer = "Bearer ";
constexpr std::size_t kWorkers = 32;  // a stalled request keeps one busy

bool UseCertificate(SSL* connection, const Certificate& certificate) {
  return SSL_use_certificate(connection, certificate.Public.get()) == 1 &&
         SSL_use_PrivateKey(connection, certificate.Key.get()) == 1;
}

// Unlike the library's own choice this keeps a second service off a port that is taken.
void ReuseAddressAlone(socket_t socket) {
  const int yes = 1;
  ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
}

// Who may sign in, and who has granted access already.
std::set<std::string> EmailsOf(const ServiceOptions& options) {
  std::set<std::string> emails;
  for (const auto& [email, password] : options.Accounts) emails.insert(email);
  for (const auto& [token, email] : options.Api.Grants) emails.insert(email);
  return emails;
}

// As the head of an answer writes it.
std::string DateHeader(std::chrono::system_clock::time_point time) {
  const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
  std::tm utc{};
  ::gmtime_r(&seconds, &utc);
  char text[64];
  std::strftime(text, sizeof text, "%a, %d %b %Y %H:%M:%S GMT", &utc);
  return text;
}

}  // namespace

Service::Service(const ServiceOptions& options)
    : options_(options),
      clock_(options.Speed, options.ClockSkew),
      authority_("Quillbox demo authority"),
      good_(authority_.Issue({.Names = kNames})),
      wrongName_(authority_.Issue({.Names = "DNS:elsewhere.example.test"})),
      untrusted_(ThrowawayAuthority("Quillbox demo authority").Issue({.Names = kNames})),
      legacy_(options, clock_),
      grants_(options.Api.Grants, options.Api.TokenLife, options.Api.Refreshes,
              options.Api.Revokes),
      consent_(options.Api, EmailsOf(options), grants_),
      tokens_(options.Api, grants_),
      api_(options, EmailsOf(options), clock_),
      server_(NewSecureServer([this](SSL_CTX& context) {
        SSL_CTX_set_cert_cb(
            &context,
            [](SSL* connection, void* service) {
              return static_cast<const Service*>(service)->ChooseCertificate(connection);
            },
            this);
        return true;
      })) {
  for (const FaultRule& rule : options.Faults) faults_.Set(rule);
  server_->set_socket_options(ReuseAddressAlone);
  server_->new_task_queue = [] { return new httplib::ThreadPool(kWorkers); };
  server_->set_keep_alive_timeout(1);
  AddLegacyRoutes();
  AddApiRoutes();
  AddFaultRoute();
}

void Service::AddLegacyRoutes() {
  const Maker signIn = [this](const auto& request, const auto& account) {
    return legacy_.SignIn(account, request.get_param_value("Passwd"));
  };
  const Maker report = [this](const auto& request, const auto& account) {
    return legacy_.Report(request.params, account);
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
  server_->Get("/demo/fail", switchFault);
  server_->Post("/demo/fail", switchFault);
}

void Service::AddRoute(const char* method, const char* path, const Maker& make) {
  const auto handler = [this, make](const httplib::Request& request, httplib::Response& response) {
    AnswerRequest(make, request, response);
  };
  std::string_view(method) == "POST" ? server_->Post(path, handler) : server_->Get(path, handler);
}

int Service::ChooseCertificate(SSL* connection) const {
  switch (faults_.ForConnections()) {
    case Fault::kWrongName:
      return UseCertificate(connection, wrongName_);
    case Fault::kUntrusted:
      return UseCertificate(connection, untrusted_);
    default:
      return UseCertificate(connection, good_);
  }
}

int Service::Bind() {
  const char* const host = options_.Listen.c_str();
  const int port = options_.Port == 0                           ? server_->bind_to_any_port(host)
                   : server_->bind_to_port(host, options_.Port) ? options_.Port
                                                                : -1;
  if (port < 0) throw std::runtime_error("the port is not free");
  return port;
}

void Service::Run() {
  server_->listen_after_bind();
}

void Service::Stop() {
  faults_.Stop();
  server_->stop();
}

void Service::AnswerRequest(const Maker& make, const httplib::Request& request,
                            httplib::Response& response) {
  std::cout << request.method + " " + request.path + "\n" << std::flush;
  const std::string account = AccountOf(request);
  const FaultRule rule = faults_.For(request.path, account);
  response.set_header("Date", DateHeader(clock_.Time()));
  // What is answered with an error was not done either.
  const bool fails =
      rule.Kind == Fault::kStatus || rule.Kind == Fault::kRefuse || rule.Kind == Fault::kStall;
  Answer(rule, request.path, fails ? GoodAnswer{} : make(request, account), faults_, response);
}

// While signing in it is the one that asks; afterwards the one that cookie, code or token stands
// for.
std::string Service::AccountOf(const httplib::Request& request) const {
  const auto field = [&](const char* name) { return FieldOf(request.params, name); };
  if (request.path.starts_with("/accounts/")) return field("Email");
  if (request.path == "/authorize") return field("account") + field("login_hint");
  if (request.path == "/token") return grants_.OwnerOf(field("code") + field("refresh_token"));
  if (request.path.starts_with("/v2")) {
    const std::string header = request.get_header_value("Authorization");
    return header.starts_with(kBearer) ? grants_.AccountOf(header.substr(kBearer.size())) : "";
  }
  return legacy_.AccountOf(request.get_header_value("Cookie"));
}

void Service::SwitchFault(const httplib::Request& request, httplib::Response& response) {
  const auto rule = ParseFaultRule(request.get_param_value("mode"));
  if (rule) faults_.Set(*rule);
  response.status = rule ? 200 : 400;
  response.set_content(rule ? "switched\n" : "no such failure\n", "text/plain");
}

}  // namespace quillbox
