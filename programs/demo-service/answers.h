// The service's answers: good ones, errors in the form of each address, and those that a fault
// spoils.
#pragma once

#include <httplib.h>

#include <string>

#include "faults.h"

namespace quillbox {

// What the service answers when nothing goes wrong on purpose.
struct GoodAnswer {
  int Status = 200;
  std::string Body;
  std::string ContentType = "text/html";
  httplib::Headers Headers = {};
};

// The page that asks for e-mail address and password.
GoodAnswer SignInPage();

// An HTML page that says no more than `what`.
GoodAnswer PlainPage(int status, const std::string& what);

// The API's error of that status.
GoodAnswer ApiError(int status, const std::string& message);

// An error of the token address: `error` is one of OAuth's names.
GoodAnswer TokenError(int status, const std::string& error, const std::string& description);

// A failure with that status, in the form of the address `path`.
GoodAnswer ErrorAt(const std::string& path, int status);

// A refusal, in the form of the address `path`.
GoodAnswer RefusalAt(const std::string& path);

// Puts into `response` what `rule` makes of `good`. `path`: of the request. With kStall it returns
// when the switch is set again or stopped.
void Answer(const FaultRule& rule, const std::string& path, const GoodAnswer& good,
            FaultSwitch& faults, httplib::Response& response);

}  // namespace quillbox
