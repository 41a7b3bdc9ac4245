// An answer that goes wrong on purpose.
#pragma once

#include <httplib.h>

#include <string>

#include "faults/fault_switch.h"

namespace quillbox {

// What the service would answer if all went well.
struct GoodAnswer {
  int Status = 200;
  std::string Body;
  std::string ContentType = "text/html";
  httplib::Headers Headers = {};
};

// The page that asks for e-mail address and password.
GoodAnswer SignInPage();

// Puts into `response` what `rule` makes of `good`. `path`: of the request. With kStall it returns
// when the switch is set again or stopped.
void Answer(const FaultRule& rule, const std::string& path, const GoodAnswer& good,
            FaultSwitch& faults, httplib::Response& response);

}  // namespace quillbox
