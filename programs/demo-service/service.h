// The demo service: its addresses and what stands behind them.
#pragma once

#include <httplib.h>

#include <string>

#include "certificates/throwaway_authority.h"
#include "demo_clock.h"
#include "faults/fault_switch.h"
#include "faulty_answer.h"
#include "service_options.h"
#include "sign_ins.h"

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

  // Answers requests until Stop is called, from another thread.
  void Run();
  void Stop();

 private:
  using Maker = GoodAnswer (Service::*)(const httplib::Request&, const std::string& account);

  void AddRoutes();
  void AddRoute(const char* path, Maker make, bool posted = false);
  std::string AccountOf(const httplib::Request& request) const;
  int ChooseCertificate(SSL* connection) const;

  GoodAnswer SignIn(const httplib::Request&, const std::string&);
  GoodAnswer Welcome(const httplib::Request&, const std::string&);
  GoodAnswer Report(const httplib::Request&, const std::string&);
  GoodAnswer Version(const httplib::Request&, const std::string&);
  void SwitchFault(const httplib::Request& request, httplib::Response& response);

  const ServiceOptions options_;
  const DemoClock clock_;
  const ThrowawayAuthority authority_;
  const Certificate good_;
  const Certificate wrongName_;
  const Certificate untrusted_;
  FaultSwitch faults_;
  SignIns signIns_;
  httplib::SSLServer server_;
};

}  // namespace quillbox
