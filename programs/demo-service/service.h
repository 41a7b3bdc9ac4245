// The demo service: its addresses and what stands behind them.
#pragma once

#include <httplib.h>

#include <functional>
#include <memory>
#include <string>

#include "answers.h"
#include "api_pages.h"
#include "faults.h"
#include "figures.h"
#include "grants.h"
#include "legacy_pages.h"
#include "service_options.h"
#include "throwaway_authority.h"

namespace quillbox {

class Service {
 public:
  // Throws std::runtime_error when the certificates can't be made.
  explicit Service(const ServiceOptions& options);

  // The certificate that clients must trust, as PEM.
  std::string AuthorityPem() const { return authority_.Pem(); }

  // Takes a port of the loopback interface, and no other; gives its number. Throws
  // std::runtime_error when that fails.
  int Bind();

  // The host as addresses name it.
  std::string Host() const { return options_.Listen == "::1" ? "[::1]" : "localhost"; }

  // Answers requests until Stop is called, from another thread.
  void Run();
  void Stop();

 private:
  using Maker =
      std::function<GoodAnswer(const httplib::Request& request, const std::string& account)>;

  void AddLegacyRoutes();
  void AddApiRoutes();
  void AddFaultRoute();
  void AddRoute(const char* method, const char* path, const Maker& make);
  void AnswerRequest(const Maker& make, const httplib::Request& request,
                     httplib::Response& response);
  std::string AccountOf(const httplib::Request& request) const;
  int ChooseCertificate(SSL* connection) const;

  void SwitchFault(const httplib::Request& request, httplib::Response& response);

  const ServiceOptions options_;
  const DemoClock clock_;
  const ThrowawayAuthority authority_;
  const Certificate good_;
  const Certificate wrongName_;
  const Certificate untrusted_;
  FaultSwitch faults_;
  LegacyPages legacy_;
  Grants grants_;
  ConsentPage consent_;
  TokenPages tokens_;
  ApiPages api_;
  const std::unique_ptr<httplib::SSLServer> server_;
};

}  // namespace quillbox
