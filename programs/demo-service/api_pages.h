// The addresses of the API.
#pragma once

#include <cstdint>
#include <set>
#include <string>

#include "api/publishers.h"
#include "demo_clock.h"
#include "good_answer.h"
#include "oauth/form_fields.h"
#include "service_options.h"

namespace quillbox {

// `email`: whose access token the request carries; empty for one without a token that holds.
class ApiPages {
 public:
  // `clock` must outlive the pages.
  ApiPages(const ServiceOptions& options, const std::set<std::string>& emails,
           const DemoClock& clock);

  GoodAnswer Accounts(const FormFields& query, const std::string& email) const;

  // `publisher`: the account's name behind "accounts/".
  GoodAnswer Report(const FormFields& query, const std::string& publisher,
                    const std::string& email) const;

 private:
  const ApiOptions options_;
  const std::uint64_t seed_;
  const Publishers publishers_;
  const DemoClock& clock_;
};

}  // namespace quillbox
