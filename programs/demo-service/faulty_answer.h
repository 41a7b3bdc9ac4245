// An answer that goes wrong on purpose.
#pragma once

#include <httplib.h>

#include <string>

#include "faults/fault_switch.h"
#include "good_answer.h"

namespace quillbox {

// Puts into `response` what `rule` makes of `good`. `path`: of the request. With kStall it returns
// when the switch is set again or stopped.
void Answer(const FaultRule& rule, const std::string& path, const GoodAnswer& good,
            FaultSwitch& faults, httplib::Response& response);

}  // namespace quillbox
