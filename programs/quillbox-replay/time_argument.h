// The time of a request.
#pragma once

#include <chrono>

#include "quillbox-replay/request.h"

namespace quillbox {

// The member "now"; the machine's time when it is left out. Throws RequestError when it is no time.
std::chrono::local_seconds TimeOf(const Request& request);

}  // namespace quillbox
