#include "service.h"

#include <openssl/ssl.h>
#include <sys/socket.h>

#include <iostream>
#include <stdexcept>

#include "reports/report_query.h"
#include "reports/report_table.h"

namespace quillbox {
namespace {

constexpr const char* kHost = "127.0.0.1";
constexpr const char* kNames = "DNS:localhost,IP:127.0.0.1,IP:::1";
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

}  // namespace

Service::Service(const ServiceOptions& options)
    : options_(options),
      clock_(options.Speed),
      authority_("Quillbox demo authority"),
      good_(authority_.Issue(kNames)),
      wrongName_(authority_.Issue("DNS:elsewhere.example.test")),
      untrusted_(ThrowawayAuthority("Quillbox demo authority").Issue(kNames)),
      signIns_(options.Accounts),
      server_([this](SSL_CTX& context) {
        SSL_CTX_set_cert_cb(
            &context,
            [](SSL* connection, void* service) {
              return static_cast<const Service*>(service)->ChooseCertificate(connection);
            },
            this);
        return true;
      }) {
  for (const FaultRule& rule : options.Faults) faults_.Set(rule);
  server_.set_socket_options(ReuseAddressAlone);
  server_.new_task_queue = [] { return new httplib::ThreadPool(kWorkers); };
  server_.set_keep_alive_timeout(1);
  AddRoutes();
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
  const int port = options_.Port == 0                           ? server_.bind_to_any_port(kHost)
                   : server_.bind_to_port(kHost, options_.Port) ? options_.Port
                                                                : -1;
  if (port < 0) throw std::runtime_error("the port is not free");
  return port;
}

void Service::Run() {
  server_.listen_after_bind();
}

void Service::Stop() {
  faults_.Stop();
  server_.stop();
}

void Service::AddRoutes() {
  AddRoute("/accounts/ServiceLoginAuth", &Service::SignIn, true);
  AddRoute("/accounts/ServiceLoginAuth", &Service::SignIn);
  AddRoute("/adsense/gaiaauth", &Service::Welcome);
  AddRoute("/adsense/report/aggregate", &Service::Report);
  AddRoute("/adsense/report/referrals", &Service::Report);
  AddRoute("/versionqb.txt", &Service::Version);
  const auto switchFault = [this](const httplib::Request& request, httplib::Response& response) {
    SwitchFault(request, response);
  };
  server_.Get("/demo/fail", switchFault);
  server_.Post("/demo/fail", switchFault);
}

void Service::AddRoute(const char* path, Maker make, bool posted) {
  const auto handler = [this, make](const httplib::Request& request, httplib::Response& response) {
    std::cout << request.method + " " + request.path + "\n" << std::flush;
    const std::string account = AccountOf(request);
    const FaultRule rule = faults_.For(request.path, account);
    const GoodAnswer good = (this->*make)(request, account);
    Answer(rule, request.path, good, faults_, response);
  };
  posted ? server_.Post(path, handler) : server_.Get(path, handler);
}

// While signing in it is the one that asks; afterwards the one that the cookie stands for.
std::string Service::AccountOf(const httplib::Request& request) const {
  return request.path.starts_with("/accounts/")
             ? request.get_param_value("Email")
             : signIns_.AccountOf(request.get_header_value("Cookie"));
}

GoodAnswer Service::SignIn(const httplib::Request& request, const std::string& account) {
  const std::string cookie = signIns_.Open(account, request.get_param_value("Passwd"));
  if (cookie.empty()) return SignInPage();
  return {302,
          "OK\n",
          "text/plain",
          {{"Set-Cookie", kCookiePrefix + cookie + "; Path=/; Secure; HttpOnly"},
           {"Location", "/adsense/gaiaauth"}}};
}

GoodAnswer Service::Welcome(const httplib::Request&, const std::string& account) {
  if (account.empty()) return SignInPage();
  return {200, "<html><head><title>Welcome</title></head><body>Signed in.</body></html>\n"};
}

GoodAnswer Service::Report(const httplib::Request& request, const std::string& account) {
  if (account.empty()) return SignInPage();
  const auto query = ParseReportQuery(request.params);
  if (!query) return {400, "No such report\n", "text/plain"};
  return {200, ReportTable(*query, options_.Seed, account, clock_.Now()),
          "text/tab-separated-values"};
}

// Without a line end: readers of the version count each character.
GoodAnswer Service::Version(const httplib::Request&, const std::string&) {
  return {200, options_.VersionText, "text/plain"};
}

void Service::SwitchFault(const httplib::Request& request, httplib::Response& response) {
  const auto rule = ParseFaultRule(request.get_param_value("mode"));
  if (rule) faults_.Set(*rule);
  response.status = rule ? 200 : 400;
  response.set_content(rule ? "switched\n" : "no such failure\n", "text/plain");
}

}  // namespace quillbox
