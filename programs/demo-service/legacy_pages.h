// The pages of the legacy service: the sign-in with its cookie, and the reports behind it. May be
// used from any thread.
#pragma once

#include <map>
#include <mutex>
#include <string>

#include "answers.h"
#include "figures.h"
#include "service_options.h"

namespace quillbox {

class LegacyPages {
 public:
  // `clock` must outlive the pages.
  LegacyPages(const ServiceOptions& options, const DemoClock& clock);

  // A new cookie and the way on, or the sign-in page again when address or password is wrong. Both
  // in UTF-8.
  GoodAnswer SignIn(const std::string& email, const std::string& password);

  // The account of the request that carries this "Cookie" header, empty when it isn't signed in.
  std::string AccountOf(const std::string& cookieHeader) const;

  // The report that `parameters` ask for. `account`: empty for one that isn't signed in.
  GoodAnswer Report(const std::multimap<std::string, std::string>& parameters,
                    const std::string& account) const;

 private:
  const std::map<std::string, std::string> passwords_;  // by e-mail address
  const std::uint64_t seed_;
  const DemoClock& clock_;
  mutable std::mutex mutex_;
  std::map<std::string, std::string> emails_;  // by cookie value
};

}  // namespace quillbox
