// The command line of the demo service.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "faults.h"
#include "grants.h"
#include "report_request.h"

namespace CLI {
class App;
}

namespace quillbox {

enum class Consent { kPage, kAuto, kDeny };

inline constexpr int kMostDays = 1'000'000;

// Of the API and of the access to it.
struct ApiOptions {
  std::string ClientId = "quillbox-demo";
  std::string ClientSecret = "no-secret";
  Consent Asks = Consent::kPage;
  std::map<std::string, std::string> Grants;  // refresh tokens and e-mail addresses
  std::chrono::seconds TokenLife{3600};
  std::size_t PublishersPerEmail = 1;
  std::size_t ReadyPublishers = 1;  // of each e-mail address
  std::size_t PageLimit = 10'000;
  std::size_t RowLimit = kMostRows;  // in one report
  OnRefresh Refreshes = OnRefresh::kKeepGrant;
  OnRevoke Revokes = OnRevoke::kGrant;
  std::chrono::days History{kMostDays};  // how long ago a range may begin
  std::string Currency = "USD";
  std::vector<std::string> Warnings;
};

struct ServiceOptions {
  int Port = 0;               // 0: any free one
  std::string AuthorityFile;  // where the authority's certificate is written; empty: nowhere
  std::string PortFile;       // where the port is written once the service listens; empty: nowhere
  std::map<std::string, std::string> Accounts;  // e-mail addresses and passwords, UTF-8
  std::vector<FaultRule> Faults;
  std::uint64_t Seed = 1;
  double Speed = 1;
  std::string VersionText = "1.3.0";
  std::string Listen = "127.0.0.1";  // or ::1
  std::chrono::seconds ClockSkew{0};
  ApiOptions Api;
};

// Adds the service's options to `program`: parsing a command line fills `options`, later ones over
// earlier ones. A value that an option can't take is a CLI::ValidationError that names the option.
void AddServiceOptions(CLI::App& program, ServiceOptions& options);

}  // namespace quillbox
