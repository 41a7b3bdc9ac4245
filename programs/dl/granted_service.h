// The reporting service, asked with a grant.
#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "environment.h"
#include "grant/grant.h"
#include "service_questions.h"
#include "session.h"

namespace quillbox {

class GrantedService {
 public:
  // `keep` is called when the service puts another grant in the place of this one.
  GrantedService(Session& session, ServiceAddresses addresses, Grant grant,
                 std::function<void(const Grant&)> keep);

  const Grant& Granted() const { return grant_; }

  // `path`: "/v2/..." and its query. An access token is fetched first if there is none that still
  // holds; it stays in memory and goes nowhere but to the service.
  ServiceReply Get(const std::string& path);

 private:
  using Clock = std::chrono::steady_clock;

  bool HasToken() const { return !token_.empty() && Clock::now() < tokenEnd_; }
  ServiceVerdict FetchToken();

  Session& session_;
  ServiceAddresses addresses_;
  Grant grant_;
  std::function<void(const Grant&)> keep_;
  std::string token_;
  Clock::time_point tokenEnd_;  // by a clock that nobody sets
};

}  // namespace quillbox
