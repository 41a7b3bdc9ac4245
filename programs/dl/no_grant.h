// The end of an authorization that leaves no grant.
#pragma once

#include <string>

#include "request/answer.h"

namespace quillbox {

// Thrown by the step that failed.
struct NoGrant {
  ResultCode Code;    // of the exit status
  std::string Words;  // why, for the person
};

}  // namespace quillbox
