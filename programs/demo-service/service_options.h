// The command line of the demo service.
#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "faults/fault_rule.h"

namespace quillbox {

struct ServiceOptions {
  int Port = 0;               // 0: any free one
  std::string AuthorityFile;  // where the authority's certificate is written; empty: nowhere
  std::string PortFile;       // where the port is written once the service listens; empty: nowhere
  std::map<std::string, std::string> Accounts;  // e-mail addresses and passwords, UTF-8
  std::vector<FaultRule> Faults;
  std::uint64_t Seed = 1;
  double Speed = 1;
  std::string VersionText = "1.3.0";
};

// What is wrong with the command line, in a sentence for people.
class BadCommandLine : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// `arguments` without the program's name. Throws BadCommandLine.
ServiceOptions ParseServiceOptions(std::span<const char* const> arguments);

}  // namespace quillbox
