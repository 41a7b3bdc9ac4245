// The region of a request.
#pragma once

#include "platform/regional_settings.h"
#include "quillbox-replay/request.h"

namespace quillbox {

// The member "region": the name of a built-in region, or an object whose left-out members are those
// of en-US. Throws RequestError on anything else.
RegionalSettings RegionOf(const Request& request);

}  // namespace quillbox
